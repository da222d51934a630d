#pragma once

#include "clientcard/FrmKlientUdaj.h"
#include "forms/EntryField.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QStringList>
#include <QTemporaryDir>

#include <optional>

namespace bench {

/// A register with that many invented clients and the code-lists, and a card on it.
class Screen {
  public:
    explicit Screen(int clients);

    /// Opens the card of the next client, or of a new one.
    void openClient();
    void openClient(const QString& key) { open(2, key); }
    void openNew();
    /// Puts a text into a field as if it had been typed.
    void type(int element, const QString& text) const { field(element).setText(text); }
    forms::EntryField& field(int element) const;
    /// Clicks a button and waits until what it wrote is durable.
    void click(const char* button);
    void key(int key) const;
    /// Gives the focus to a field, without running the rule of the field that is left.
    void goTo(int element) const;

    template <typename Widget>
    Widget& find(const QString& name) const {
        return *card->findChild<Widget*>(name);
    }
    store::Database& database() { return *database_; }
    /// A number that no client has.
    QString freeNumber() { return QString::number(++number_); }

    QTemporaryDir directory;
    store::ProgramFolder folder{directory.path()};
    store::DBEngine engine;
    std::optional<clientcard::FrmKlientUdaj> card;

  private:
    void open(int mode, const QString& key);

    /// Open all the while, as the main window keeps it.
    std::optional<store::Database> database_;
    QStringList keys_;
    qsizetype next_ = 0;
    int number_ = 90'000'000;
};

} // namespace bench
