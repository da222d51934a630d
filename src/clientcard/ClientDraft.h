#pragma once

#include "card/Actions.h"
#include "card/Draft.h"
#include "clientcard/CardData.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/TabFamily.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace clientcard {

using TabFamilies = std::vector<std::unique_ptr<TabFamily>>;

/// The client whose rows are open, and what was typed into them: opened, saved in one of the three
/// ways, or dropped. When a save fails, the same client is opened again with all of it.
class ClientDraft {
  public:
    /// All must outlive it.
    ClientDraft(CardData& data, const TabFamilies& families, SaveCycle& cycle,
                card::Actions& actions)
        : data_(data), families_(families), cycle_(cycle), actions_(actions) {}

    /// Opens the rows that `gAkcia` and `gIdKod` tell, and what their codes mean.
    /// @throws store::EngineError 3021 when the client is not there
    void otvorKlienta();

    // Each is one unit of work with what it opens. They throw why nothing was written.
    /// Saves and opens the rows for the further edit. A client whom the table has refused isNew()
    /// as before.
    SaveResult saveOnTheWay();
    SaveResult saveAndLeave();
    /// Saves and opens new rows, for the next client.
    SaveResult saveForNext();
    /// Drops what is not written. Reads nothing, so that it can't fail.
    void drop() const { data_.dropClient(); }

    /// Never written so far.
    bool isNew() const;
    /// Something is typed or picked that is not written.
    bool isChanged() const;

    /// The same, field by field, and the way back.
    forms::Words typedWords() const;
    void enterWords(const forms::Words& words) const;

    /// The rows are still to be opened for what the fields show: they could not be read after a
    /// save that failed, and are opened before the next one.
    bool isOwed() const { return draft_.isOwed(); }

  private:
    struct Kept {
        quint8 akcia = 0;
        QString idKod;
        QString menoKlienta;
        bool isNew = false;
    };
    SaveResult save(const std::function<void()>& afterwards);
    void keep();
    void resume();
    card::Draft::Typed typed() const;
    void openKept();
    void openExisting();
    void openNew();
    void openWritten();

    CardData& data_;
    const TabFamilies& families_;
    SaveCycle& cycle_;
    card::Actions& actions_;
    card::Draft draft_;
    Kept kept_;
};

} // namespace clientcard
