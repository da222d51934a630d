#include "forms/KitScreen.h"
#include "forms/MessageBox.h"
#include "store/EngineError.h"

#include <QMenu>

using forms::Control;
using forms::Leave;
using kittest::KitScreen;
using namespace Qt::StringLiterals;

namespace {

struct Way {
    const char* name;
    std::function<void(KitScreen&)> leave;
    const char16_t* to;
};

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

/// All ways in which the user, or the program, leaves the field text(0).
const std::vector<Way>& waysOut() {
    static const std::vector<Way> ways = {
        {"Tab", [](KitScreen& s) { s.key(Qt::Key_Tab); }, u"text(1)"},
        {"Program", [](KitScreen& s) { s.text[2].setFocus(); }, u"text(2)"},
        {"ClickField", [](KitScreen& s) { s.press(s.text[1]); }, u"text(1)"},
        {"ClickButton", [](KitScreen& s) { s.press(s.save); }, u"save"},
        {"AltLetter", [](KitScreen& s) { s.key(Qt::Key_Z, Qt::AltModifier); }, u"save"},
        {"ClickList", [](KitScreen& s) { s.clickRow(1); }, u"list"},
        {"ClickTab", [](KitScreen& s) { s.clickTab(1); }, u"tabs"},
        {"ClickDropDown", [](KitScreen& s) { s.press(s.combo); }, u"combo"},
        {"Wheel",
         [](KitScreen& s) {
             const QPointF place = s.centreOf(s.combo);
             QWheelEvent wheel(place, s.mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton,
                               Qt::NoModifier, Qt::NoScrollPhase, false);
             QSpontaneKeyEvent::setSpontaneous(&wheel);
             qApp->notify(s.windowHandle(), &wheel);
         },
         u"combo"},
    };
    return ways;
}

/// What a box asks when a field is left.
const forms::Message question{.text = u"Chybný dátum"_s,
                              .buttons = QMessageBox::Retry | QMessageBox::Cancel};

template <class Base>
class GuardTest : public Base {
  protected:
    void expectQuestion(QMessageBox::StandardButton answer) {
        boxes.expect({.text = question.text, .buttons = question.buttons, .answer = answer});
    }
    /// The rule asks, and stays in the field for a Retry.
    void askOnLeaving(QMessageBox::StandardButton answer) {
        screen.onLeaving([this](const Control&, const Control&) {
            const bool holds = forms::showMessage(&screen, question) == QMessageBox::Retry;
            return holds ? Leave::Hold : Leave::Go;
        });
        expectQuestion(answer);
    }

    KitScreen screen;
    support::ScriptedBoxes boxes;
};

using LeavingTest = GuardTest<testing::TestWithParam<Way>>;
using FocusGuardTest = GuardTest<testing::Test>;

/// Whether a press did more than move the focus.
bool acted(KitScreen& screen) {
    // A button pressed by its letter stays down for a moment.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !screen.save.isDown(); }));
    const bool opened = QApplication::activePopupWidget() != nullptr;
    screen.combo.hidePopup();
    return opened || screen.told.contains(u"save"_s) || screen.list.currentRow() == 1 ||
           screen.tabs.currentIndex() == 1 || screen.combo.currentIndex() == 1;
}

} // namespace

TEST_P(LeavingTest, PassesWithOneCheckThatKnowsWhoHasTheFocus) {
    QString focusInRule;
    screen.onLeaving([&](const Control&, const Control&) {
        focusInRule = QApplication::focusWidget()->objectName();
        return Leave::Go;
    });
    GetParam().leave(screen);
    const QString to = QString::fromUtf16(GetParam().to);
    EXPECT_EQ(screen.focused(), to);
    EXPECT_EQ(focusInRule, to);
    EXPECT_EQ(screen.told.filter(u"lost"_s), QStringList(u"lost text(0) to "_s + to));
    const QString got = u"got "_s + to;
    EXPECT_EQ(screen.told.count(got), to.startsWith(u"text") ? 1 : 0);
    EXPECT_EQ(acted(screen), !to.startsWith(u"text")) << "the press itself got lost";
}

TEST_P(LeavingTest, HeldByABoxActsOnNothing) {
    askOnLeaving(QMessageBox::Retry);
    GetParam().leave(screen);
    boxes.allCame();
    EXPECT_EQ(screen.focused(), u"text(0)"_s);
    EXPECT_FALSE(acted(screen));
    EXPECT_TRUE(screen.told.filter(u"got"_s).isEmpty()) << qPrintable(screen.heard());
    // The field is alive and the next leaving is asked again.
    QTest::keyClick(screen.windowHandle(), Qt::Key_7);
    EXPECT_EQ(screen.text[0].text(), u"7"_s);
    screen.rule = nullptr;
    screen.press(screen.save);
    EXPECT_EQ(screen.focused(), u"save"_s);
    EXPECT_EQ(screen.told.count(u"save"_s), 1);
}

TEST_P(LeavingTest, HeldSilentlyOrSentElsewhereActsOnNothing) {
    screen.onLeaving([&](const Control&, const Control&) {
        screen.text[2].setFocus();
        screen.text[0].setFocus();
        return Leave::Go;
    });
    GetParam().leave(screen);
    EXPECT_EQ(screen.focused(), u"text(0)"_s);
    EXPECT_FALSE(acted(screen));
    EXPECT_EQ(screen.told.size(), 1) << qPrintable(screen.heard());
}

TEST_P(LeavingTest, ABoxThatLetsPassLeavesNoButtonDown) {
    askOnLeaving(QMessageBox::Cancel);
    GetParam().leave(screen);
    EXPECT_EQ(screen.focused(), QString::fromUtf16(GetParam().to));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !screen.save.isDown(); }));
    EXPECT_EQ(screen.told.filter(u"lost"_s).size(), 1);
}

TEST_P(LeavingTest, ValidateRunsBeforeTheFocusMovesAndCanHoldIt) {
    screen.holds = true;
    const QString asked = u"validate text(0), focus text(0)"_s;
    GetParam().leave(screen);
    EXPECT_EQ(screen.told, QStringList(asked));
    EXPECT_EQ(screen.focused(), u"text(0)"_s);
    EXPECT_FALSE(acted(screen));
    screen.holds = false;
    screen.told.clear();
    GetParam().leave(screen);
    EXPECT_EQ(screen.told.value(0), asked);
    EXPECT_EQ(screen.focused(), QString::fromUtf16(GetParam().to));
}

INSTANTIATE_TEST_SUITE_P(EveryWay, LeavingTest, testing::ValuesIn(waysOut()),
                         [](const auto& way) { return way.param.name; });

TEST_F(FocusGuardTest, TheFocusSentToAThirdControlIsItsOnlyGotFocus) {
    screen.onLeaving([&](const Control&, const Control&) {
        screen.text[2].setFocus();
        return Leave::Go;
    });
    screen.press(screen.save);
    EXPECT_EQ(screen.heard(), u"lost text(0) to save; got text(2)"_s);
    EXPECT_EQ(screen.focused(), u"text(2)"_s);
}

TEST_F(FocusGuardTest, BoxesMenusAndOtherWindowsAreNoLeaving) {
    screen.answerLeaving(Leave::Hold);
    expectQuestion(QMessageBox::Cancel);
    forms::showMessage(&screen, question);
    EXPECT_EQ(screen.focused(), u"text(0)"_s);

    QMenu menu;
    menu.addAction(u"Kopírovať"_s);
    menu.popup(screen.mapToGlobal(QPoint(5, 5)));
    QTest::keyClick(&menu, Qt::Key_Escape);

    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));

    EXPECT_EQ(screen.focused() + screen.heard(), u"text(0)"_s);
}

TEST_F(FocusGuardTest, AnOpenedDropDownAndAnEditorOfARowAreNoLeaving) {
    screen.guard.watch(&screen.combo, screen);
    screen.combo.setFocus();
    screen.told.clear();
    screen.press(screen.combo);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_EQ(screen.focused() + screen.heard(), u"combo"_s);

    screen.guard.watch(&screen.list, screen);
    screen.list.item(0)->setFlags(screen.list.item(0)->flags() | Qt::ItemIsEditable);
    screen.list.setFocus();
    screen.told.clear();
    screen.list.editItem(screen.list.item(0));
    ASSERT_NE(QApplication::focusWidget(), &screen.list);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(screen.focused() + screen.heard(), u"list"_s);
}

TEST_F(FocusGuardTest, AHiddenOrDisabledFieldIsToldButCannotBeHeld) {
    QList<bool> enabled;
    screen.onLeaving([&](const Control& field, const Control&) {
        enabled += field.isEnabled();
        return Leave::Hold;
    });
    screen.text[0].setEnabled(false);
    EXPECT_EQ(screen.focused(), u"text(1)"_s);
    screen.text[1].hide();
    EXPECT_EQ(screen.focused(), u"text(2)"_s);
    EXPECT_EQ(screen.heard(), u"lost text(0) to text(1); got text(1); "
                              "lost text(1) to text(2); got text(2)"_s);
    EXPECT_EQ(enabled, QList<bool>({false, true}));
}

TEST_F(FocusGuardTest, StornoValidatesNothingAndTheCheckIsLeftPending) {
    for (const char* way : {"mouse", "focus and Enter", "Esc"}) {
        SCOPED_TRACE(way);
        screen.text[0].setFocus();
        screen.told.clear();
        screen.onLeaving([](const Control&, const Control& now) {
            return now.causesValidation() ? Leave::Hold : Leave::Pending;
        });
        screen.holds = true;
        if (*way == 'm')
            screen.press(screen.storno);
        if (*way == 'f')
            screen.storno.setFocus();
        if (*way != 'm')
            screen.key(*way == 'f' ? Qt::Key_Return : Qt::Key_Escape);
        EXPECT_EQ(screen.told.count(u"storno"_s), 1);
        EXPECT_TRUE(screen.told.filter(u"validate"_s).isEmpty());
        // Going on from Storno, the field is asked after all.
        screen.holds.reset();
        screen.press(screen.save);
        EXPECT_EQ(screen.focused(), u"text(0)"_s);
        EXPECT_FALSE(screen.told.contains(u"save"_s));
        screen.rule = nullptr;
    }
}

TEST_F(FocusGuardTest, ValidateIsOwedWhenTheFocusGoesOnFromStorno) {
    screen.holds = true;
    screen.press(screen.storno);
    EXPECT_EQ(screen.focused(), u"storno"_s);
    screen.press(screen.text[1]);
    EXPECT_EQ(screen.focused(), u"text(0)"_s);
    EXPECT_TRUE(screen.told.contains(u"validate text(0), focus text(0)"_s));
}

TEST_F(FocusGuardTest, KeysCanBeConsumedAndCharactersDropped) {
    QList<int> keys;
    screen.onKey = [&](const Control& field, int& key) {
        keys += key;
        if (key == Qt::Key_Return || key == Qt::Key_3)
            screen.text[field.index() + 1].setFocus();
        if (key == Qt::Key_F2)
            key = 0;
    };
    screen.onlyDigits = true;
    for (const int key : {Qt::Key_1, Qt::Key_A, Qt::Key_2, Qt::Key_Backspace, Qt::Key_F2})
        screen.key(key);
    EXPECT_EQ(screen.text[0].text(), u"1"_s);
    screen.key(Qt::Key_3);
    EXPECT_EQ(screen.text[0].text(), u"1"_s) << "typed in the field that was left";
    screen.text[0].setFocus();
    screen.key(Qt::Key_Enter);
    EXPECT_EQ(screen.focused(), u"text(1)"_s);
    EXPECT_EQ(keys, QList<int>({Qt::Key_1, Qt::Key_A, Qt::Key_2, Qt::Key_Backspace, Qt::Key_F2,
                                Qt::Key_3, Qt::Key_Return}));
    screen.onKey = nullptr;
    screen.key(Qt::Key_Return);
    EXPECT_FALSE(screen.told.contains(u"save"_s)) << "Enter pressed a button";
    forms::pressTab();
    EXPECT_EQ(screen.focused(), u"text(2)"_s);
}

TEST_F(FocusGuardTest, AnEngineErrorInARuleIsReportedAndNothingIsHeld) {
    screen.rule = [](const Control&, const Control&) -> Leave {
        throw store::EngineError(store::ErrorNumber::SyntaxError, u"Chyba."_s);
    };
    boxes.expect({.text = u"Chyba č. 3075\n\nChyba."_s, .icon = QMessageBox::Critical});
    screen.key(Qt::Key_Tab);
    EXPECT_EQ(screen.focused(), u"text(1)"_s);
}

TEST_F(FocusGuardTest, EscIsHandedOverAndADisabledButtonOfEscDoesNothing) {
    screen.key(Qt::Key_Escape);
    screen.esc.set(&screen.save);
    EXPECT_TRUE(Control(&screen.storno).causesValidation());
    EXPECT_FALSE(Control(&screen.save).causesValidation());
    screen.key(Qt::Key_Escape);
    screen.save.setEnabled(false);
    screen.key(Qt::Key_Escape);
    screen.esc.set(nullptr);
    screen.key(Qt::Key_Escape);
    EXPECT_EQ(screen.heard(), u"storno; save"_s);
    EXPECT_TRUE(screen.isVisible());
}
