#pragma once

#include "clientcard/FrmKlientUdaj.h"
#include "forms/RichText.h"
#include "support/CardDriver.h"

#include <QListWidget>
#include <QRadioButton>
#include <QTextEdit>

namespace cardtest {

/// The tables of a client's records.
inline constexpr const char* recordTables[] = {"k_navstevy", "k_surodenci",  "k_vysetrenie",
                                               "k_zariad",   "k_zaznam_spc", "k_zaznam_zmeny"};

/// A register with a few code-lists, and a card on it that is driven by keys as a user does.
class CardTest : public CardDriver<clientcard::FrmKlientUdaj> {
  protected:
    CardTest() {
        addCode("c_iczuj", "500011", "Nitra");
        addCode("c_iczuj", "500046", "Bab");
        addCode("c_zdrpoi", "25", "Poistovna");
        addCode("c_narodn", "01", "slovenska");
        addCode("c_iczeme", "SK", "Slovensko");
        addCode("c_jazyk", "sk", "slovencina");
    }
    void addCode(const char* table, const char* code, const char* name) {
        reg.add(text(table), {{u"kod", text(code)}, {u"nazov", text(name)}});
    }

    void insertClient(const char* key, const char* values = "") {
        reg.add(text("k_zaklad"), {{u"idkod", text(key)},
                                   {u"meno", text("Eva")},
                                   {u"priezv", text("Novotna")},
                                   {u"katcis", text("5")}});
        reg.add(text("k_memo"), {{u"idkod", text(key)}});
        if (*values != '\0')
            reg.execute(
                {text("update k_zaklad set %1 where idkod = '%2'").arg(text(values), text(key))});
    }
    /// Leaves the client one record of each kind.
    void insertRecords(const char* key) {
        for (const char* table : recordTables) {
            reg.execute({text("delete from ") + text(table)});
            reg.add(text(table), {{u"idkod", text(key)}});
        }
    }
    void deleteClients() {
        reg.execute({text("delete from k_zaklad"), text("delete from k_memo")});
    }
    /// Opens the card on the only client of the register, Eva Novotna with these values.
    void openClient(const char* values = "", const char* key = "NOVOTNEV00") {
        deleteClients();
        insertClient(key, values);
        open(text(key));
    }
    /// Opens the card for a new client and enters what is mandatory.
    void enterClient(const char* name = "jana", const char* surname = "novotna",
                     const char* number = "17") {
        open();
        enter({name, surname});
        enterInto(6, number);
    }

    forms::EntryField& field(int element) {
        return at(qPrintable(QStringLiteral("textKrz(%1)").arg(element)));
    }
    /// Forth by Ctrl and PageDown, or back.
    void turnTabs(int tabs) {
        for (int i = 0; i < qAbs(tabs); ++i)
            key(tabs > 0 ? Qt::Key_PageDown : Qt::Key_PageUp, Qt::ControlModifier);
    }
    /// Types a note on a tab of texts, and comes back.
    void typeNote(const char* note) {
        turnTabs(7);
        type(note);
        turnTabs(-7);
    }
    /// Also on the tab behind the one on show.
    void goTo(int element) {
        if (!field(element).isVisible())
            turnTabs(1);
        field(element).setFocus();
        ASSERT_EQ(focused(), QStringLiteral("textKrz(%1)").arg(element));
    }
    void enterInto(int element, const char* typed) {
        goTo(element);
        enter(typed);
    }
    /// A box that lets the wrong text stay for correction, or empties the field.
    void expectRefusal(const char* message, QMessageBox::StandardButton answer) {
        boxes.expectAsked(text(message), text("Chybová správa"), QMessageBox::Warning,
                          QMessageBox::Retry | QMessageBox::Cancel, answer);
    }
    void expectWrongDate(QMessageBox::StandardButton answer) {
        expectRefusal("Chybný dátum, zadaj v tvare dd.mm.rrrr!", answer);
    }
    QString stored(const char* column, const char* table = "k_zaklad") {
        return reg.text(text(table), text(column));
    }
    /// How many clients there are, or those that meet a condition.
    qint64 clients(const char* condition = "true") {
        return reg.count(text("select * from k_zaklad where ") + text(condition));
    }
    qint64 memos() { return reg.count(text("k_memo")); }
    /// Keys, or other columns, of the client's two rows.
    QString storedKeys() { return stored("idkod") + u' ' + stored("idkod", "k_memo"); }
    QString note() { return stored("poznamky", "k_memo"); }
    QListWidget& tabs() { return at<QListWidget>("SSTab1"); }
    bool isEnabled(int tab) { return tabs().item(tab)->flags().testFlag(Qt::ItemIsEnabled); }
};

} // namespace cardtest
