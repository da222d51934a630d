#pragma once

#include "clientcard/FrmKlientUdaj.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"
#include "validation/modKontrola.h"

#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <optional>

namespace cardtest {

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// The tables of a client's records.
inline constexpr const char* recordTables[] = {"k_navstevy", "k_surodenci",  "k_vysetrenie",
                                               "k_zariad",   "k_zaznam_spc", "k_zaznam_zmeny"};

/// A register with a few code-lists, and a card on it that is driven by keys as a user does.
class CardTest : public testing::Test {
  protected:
    CardTest() {
        addCode("c_iczuj", "500011", "Nitra");
        addCode("c_iczuj", "500046", "Bab");
        addCode("c_zdrpoi", "25", "Poistovna");
        addCode("c_narodn", "01", "slovenska");
        addCode("c_iczeme", "SK", "Slovensko");
        addCode("c_jazyk", "sk", "slovencina");
    }
    /// Adds a row, as "k_zaklad (idkod) values ('1')".
    void insert(const char* row) { reg.execute({text("insert into ") + text(row)}); }
    void addCode(const char* table, const char* code, const char* name) {
        reg.add(text(table), {{u"kod", text(code)}, {u"nazov", text(name)}});
    }

    /// Opens the card as the list of clients does: on a client, or for a new one.
    void open(const QString& key = {}) {
        card.reset();
        modKontrola::gAkcia = key.isEmpty() ? 1 : 2;
        modKontrola::gIdKod = key;
        reg.engine.commitPending();
        card.emplace(reg.engine, reg.folder);
        card->show();
        card->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*card));
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
    /// Opens the card on the only client of the register, Eva Novotna with these values.
    void openClient(const char* values = "") {
        reg.execute({text("delete from k_zaklad"), text("delete from k_memo")});
        insertClient("NOVOTNEV00", values);
        open(text("NOVOTNEV00"));
    }
    /// Opens the card for a new client and enters what is mandatory.
    void enterClient(const char* name = "jana", const char* surname = "novotna",
                     const char* number = "17") {
        open();
        for (const char* typed : {name, surname})
            enter(typed);
        enterInto(6, number);
    }

    template <typename Widget = forms::EntryField>
    Widget& at(const char* name) {
        auto* found = card->findChild<Widget*>(text(name));
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    forms::EntryField& field(int element) {
        return at(qPrintable(QStringLiteral("textKrz(%1)").arg(element)));
    }
    QString focused() {
        EXPECT_TRUE(QTest::qWaitFor([this] {
            return card->isActiveWindow() || QApplication::activePopupWidget() != nullptr;
        }));
        const QWidget* named = card->focusWidget();
        while (named != nullptr && named->objectName().isEmpty())
            named = named->parentWidget();
        return named != nullptr ? named->objectName() : QString();
    }
    /// What a key goes to: the opened list of a drop-down, or the control in focus.
    QWidget* keyboard() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup != nullptr ? popup->findChild<QListView*>() : card->focusWidget();
    }
    /// Presses a key; the boxes expected must have come by then, as behind each press.
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        focused();
        QTest::keyClick(keyboard(), Qt::Key(code), modifiers);
        boxes.allCame();
    }
    /// Types a text; what no simulated key can type is pasted.
    void type(const char* typed) {
        if (text(typed).toLatin1() == QByteArray(typed))
            return QTest::keyClicks(keyboard(), QLatin1String(typed));
        QApplication::clipboard()->setText(text(typed));
        key(Qt::Key_V, Qt::ControlModifier);
    }
    void enter(const char* typed = "") {
        type(typed);
        key(Qt::Key_Return);
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
    void goTo(int element) {
        field(element).setFocus();
        ASSERT_EQ(focused(), QStringLiteral("textKrz(%1)").arg(element));
    }
    void enterInto(int element, const char* typed) {
        goTo(element);
        enter(typed);
    }
    void press(QWidget& widget) {
        QTest::mouseClick(card->windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(&*card, widget.rect().center()));
        boxes.allCame();
    }
    void click(const char* button) { press(at<QPushButton>(button)); }
    /// Goes to a button by Tab and presses it by Enter.
    void pressByKeys(const char* name) {
        QTest::keyClick(keyboard(), Qt::Key_PageDown);
        for (int i = 0; i < 12 && focused() != text(name); ++i)
            QTest::keyClick(keyboard(), Qt::Key_Tab, Qt::ShiftModifier);
        ASSERT_EQ(focused(), text(name));
        key(Qt::Key_Return);
    }
    void expect(const char* message, const char* title = "Chybová správa",
                QMessageBox::Icon icon = QMessageBox::Warning) {
        boxes.expect({.text = text(message), .title = text(title), .icon = icon});
    }
    /// A box that lets the wrong text stay for correction, or empties the field.
    void expectRefusal(const char* message, QMessageBox::StandardButton answer) {
        boxes.expect({.text = text(message),
                      .title = text("Chybová správa"),
                      .icon = QMessageBox::Warning,
                      .buttons = QMessageBox::Retry | QMessageBox::Cancel,
                      .answer = answer});
    }
    void expectWrongDate(QMessageBox::StandardButton answer) {
        expectRefusal("Chybný dátum, zadaj v tvare dd.mm.rrrr!", answer);
    }
    void expectQuestion(const QString& question, const QString& title,
                        QMessageBox::StandardButton answer) {
        boxes.expect({.text = question,
                      .title = title,
                      .icon = QMessageBox::Question,
                      .buttons = QMessageBox::Yes | QMessageBox::No,
                      .answer = answer});
    }
    void expectEngineError(const char* message) { expect(message, "", QMessageBox::Critical); }
    QString stored(const char* column, const char* table = "k_zaklad") {
        return reg.text(text(table), text(column));
    }
    /// How many clients there are, or those that meet a condition.
    qint64 clients(const char* condition = "true") {
        return reg.count(text("select * from k_zaklad where ") + text(condition));
    }
    /// From now on the file refuses an action, as "insert on k_zaklad".
    void refuse(const char* action) {
        executeInFile(text("create trigger refusal before %1 begin "
                           "select raise(abort, 'refused'); end")
                          .arg(text(action)));
    }
    void refuseNoMore() { executeInFile(text("drop trigger refusal")); }
    /// The register is open by then: at its opening it would refuse what does not belong into it.
    void executeInFile(const QString& sql) {
        reg.database();
        reg.engine.commitPending();
        sqlite3* file = nullptr;
        sqlite3_open(qPrintable(reg.folder.database()), &file);
        EXPECT_EQ(sqlite3_exec(file, qPrintable(sql), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(file);
    }
    QListWidget& tabs() { return at<QListWidget>("SSTab1"); }
    bool isEnabled(int tab) { return tabs().item(tab)->flags().testFlag(Qt::ItemIsEnabled); }

    support::TemporaryRegister reg;
    support::ScriptedBoxes boxes;
    std::optional<clientcard::FrmKlientUdaj> card;
};

} // namespace cardtest
