#pragma once

#include "card/Draft.h"
#include "clientcard/CardData.h"
#include "clientcard/TabFamily.h"

#include <QString>

#include <memory>
#include <vector>

namespace clientcard {

using TabFamilies = std::vector<std::unique_ptr<TabFamily>>;

/// The client whose rows are open, and what was typed into them. When a save fails, the same client
/// is opened again with all of it.
class ClientDraft {
  public:
    /// All must outlive it.
    ClientDraft(CardData& data, const TabFamilies& families) : data_(data), families_(families) {}

    /// Opens the rows that `gAkcia` and `gIdKod` tell.
    /// @throws store::EngineError 3021 when the client is not there
    void open();
    /// Opens new rows. @throws store::EngineError
    void openNew();
    /// Opens the rows that were written for the further edit, if they are there.
    /// @throws store::EngineError
    void openWritten();

    /// Never written so far.
    bool isNew() const;
    /// A new client has lost the open row: it could not be written.
    bool isLost() const;
    /// Something is typed or picked that is not written.
    bool isChanged() const;

    /// Remembers the client and what was typed, before a save.
    void keep();
    /// Goes on with what was kept as if the save had not begun. What can't be read now is opened
    /// before the next save; the fields show what was typed all the same.
    void resume();
    /// The rows are still to be opened for what the fields show.
    bool isOwed() const { return draft_.isOwed(); }
    /// Opens them. @throws store::EngineError
    void openOwed() { draft_.openOwed(typed()); }
    /// Something had been typed when the last save began.
    bool heldTyped() const { return kept_.hasTyped; }

    /// What could not be written since the last call.
    std::vector<forms::NotWritten> takeErrors() const;

  private:
    struct Kept {
        quint8 akcia = 0;
        QString idKod;
        QString menoKlienta;
        bool isNew = false;
        bool hasTyped = false;
    };
    card::Draft::Typed typed() const;
    void openKept();
    void openExisting();

    CardData& data_;
    const TabFamilies& families_;
    card::Draft draft_;
    Kept kept_;
};

} // namespace clientcard
