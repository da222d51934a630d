#pragma once

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"
#include "validation/modKontrola.h"
#include "words/Keeper.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QWindow>

#include <sqlite3.h>

#include <algorithm>
#include <optional>

namespace cardtest {

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// A register, and a card or form on it that is driven by keys as a user does.
template <class Card>
class CardDriver : public testing::Test {
  protected:
    /// Opens the card as a list does: on whom the key names, or for somebody new.
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
    /// Adds a row, as "k_zaklad (idkod) values ('1')".
    void insert(const char* row) { reg.execute({text("insert into ") + text(row)}); }

    template <typename Widget = forms::EntryField>
    Widget& at(const char* name) {
        auto* found = card->template findChild<Widget*>(text(name));
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
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
    /// Presses these keys: T is Tab, R Enter, E Esc, D Down, U Up, F F4, H Home, X Delete; what
    /// else there is is typed.
    void keys(const char* pressed) {
        for (const char* k = pressed; *k != '\0'; ++k) {
            const auto known = std::ranges::find(keyLetters, *k, &std::pair<char, Qt::Key>::first);
            known != std::end(keyLetters) ? key(known->second) : QTest::keyClick(keyboard(), *k);
        }
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
    /// Keeps what is typed, and ends the card as a kill does: nothing else of it is left.
    void crash(const char* storno) {
        const QString path = words::Book::fileOf(reg.folder);
        card->template findChild<words::Keeper*>()->keep();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }));
        const QString left = path + text(".kopia");
        ASSERT_TRUE(QFile::copy(path, left));
        click(storno);
        card.reset();
        QFile::remove(path);
        ASSERT_TRUE(QFile::rename(left, path));
    }
    bool offersWords() { return at<QLabel>("lblSlova").isVisible(); }
    /// Presses a button of the offer by its letter, which clicks it when it has come up again.
    void answerWords(Qt::Key letter) {
        key(letter, Qt::AltModifier);
        for (const char* name : {"cmdVratitSlova", "cmdZahoditSlova"})
            ASSERT_TRUE(QTest::qWaitFor([&] { return !at<QPushButton>(name).isDown(); }));
    }
    void takeWordsBack() { answerWords(Qt::Key_L); }
    void closeList() {
        if (auto* popup = QApplication::activePopupWidget())
            popup->close();
    }
    void enter(std::initializer_list<const char*> texts) {
        for (const char* typed : texts)
            enter(typed);
    }
    void press(QWidget& widget) {
        support::press(widget);
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
        boxes.expectTold(text(message), text(title), icon);
    }
    /// Enter alone is No.
    void expectQuestion(const QString& question, const QString& title,
                        QMessageBox::StandardButton answer) {
        boxes.expect({.text = question,
                      .title = title,
                      .icon = QMessageBox::Question,
                      .buttons = QMessageBox::Yes | QMessageBox::No,
                      .answer = answer,
                      .byEnter = answer == QMessageBox::No});
    }
    void expectEngineError(const char* message) { expect(message, "", QMessageBox::Critical); }
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

    static constexpr std::pair<char, Qt::Key> keyLetters[] = {
        {'T', Qt::Key_Tab}, {'R', Qt::Key_Return}, {'E', Qt::Key_Escape}, {'D', Qt::Key_Down},
        {'U', Qt::Key_Up},  {'F', Qt::Key_F4},     {'H', Qt::Key_Home},   {'X', Qt::Key_Delete}};
    support::TemporaryRegister reg;
    support::ScriptedBoxes boxes;
    std::optional<Card> card;
};

} // namespace cardtest
