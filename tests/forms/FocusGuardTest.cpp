#include "forms/KitScreen.h"
#include "forms/MessageBox.h"
#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"

#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

using forms::Control;
using forms::Leave;
using kittest::KitScreen;

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

class LeavingTest : public testing::TestWithParam<Way> {
  protected:
    KitScreen screen;
    support::ScriptedBoxes boxes;
};

/// What a press does besides moving the focus.
struct Effects {
    bool saved, rowMoved, tabTurned, opened, picked;
};

Effects effectsOn(KitScreen& screen) {
    // A button pressed by its letter stays down for a moment.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !screen.save.isDown(); }));
    const bool opened = QApplication::activePopupWidget() != nullptr;
    screen.combo.hidePopup();
    return {screen.told.contains(QStringLiteral("save")), screen.list.currentRow() == 1,
            screen.tabs.currentIndex() == 1, opened, screen.combo.currentIndex() == 1};
}

bool isAny(const Effects& e) {
    return e.saved || e.rowMoved || e.tabTurned || e.opened || e.picked;
}

const forms::Message question{.text = QStringLiteral("Chybný dátum"),
                              .buttons = QMessageBox::Retry | QMessageBox::Cancel};

void expectQuestion(support::ScriptedBoxes& boxes, QMessageBox::StandardButton answer) {
    boxes.expect(
        support::ExpectedBox{.text = question.text, .buttons = question.buttons, .answer = answer});
}

} // namespace

TEST_P(LeavingTest, PassesWithOneCheckThatKnowsWhoHasTheFocus) {
    QString focusInRule;
    screen.rule = [&](const Control&, const Control&) {
        focusInRule = QApplication::focusWidget()->objectName();
        return Leave::Go;
    };
    GetParam().leave(screen);
    const QString to = QString::fromUtf16(GetParam().to);
    EXPECT_EQ(screen.focused(), to);
    EXPECT_EQ(focusInRule, to);
    EXPECT_EQ(screen.told.filter(QStringLiteral("lost")),
              QStringList(QStringLiteral("lost text(0) to ") + to));
    const QString got = QStringLiteral("got ") + to;
    EXPECT_EQ(screen.told.count(got), to.startsWith(u"text") ? 1 : 0);
    const bool actsOnly = GetParam().name == std::string("Tab") || to.startsWith(u"text");
    EXPECT_EQ(isAny(effectsOn(screen)), !actsOnly) << "the press itself got lost";
}

TEST_P(LeavingTest, HeldByABoxActsOnNothing) {
    screen.rule = [&](const Control&, const Control&) {
        return forms::showMessage(&screen, question) == QMessageBox::Retry ? Leave::Hold
                                                                           : Leave::Go;
    };
    expectQuestion(boxes, QMessageBox::Retry);
    GetParam().leave(screen);
    boxes.allCame();
    EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));
    EXPECT_FALSE(isAny(effectsOn(screen)));
    EXPECT_TRUE(screen.told.filter(QStringLiteral("got")).isEmpty())
        << screen.told.join(u"; ").toStdString();
    EXPECT_FALSE(screen.save.isDown());
    // The field is alive and the next leaving is asked again.
    QTest::keyClick(screen.windowHandle(), Qt::Key_7);
    EXPECT_EQ(screen.text[0].text(), QStringLiteral("7"));
    screen.rule = nullptr;
    screen.press(screen.save);
    EXPECT_EQ(screen.focused(), QStringLiteral("save"));
    EXPECT_EQ(screen.told.count(QStringLiteral("save")), 1);
}

TEST_P(LeavingTest, HeldSilentlyOrSentElsewhereActsOnNothing) {
    screen.rule = [&](const Control&, const Control&) {
        screen.text[2].setFocus();
        screen.text[0].setFocus();
        return Leave::Go;
    };
    GetParam().leave(screen);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));
    EXPECT_FALSE(isAny(effectsOn(screen)));
    EXPECT_EQ(screen.told.size(), 1) << screen.told.join(u"; ").toStdString();
}

TEST_P(LeavingTest, ABoxThatLetsPassLeavesNoButtonDown) {
    screen.rule = [&](const Control&, const Control&) {
        forms::showMessage(&screen, question);
        return Leave::Go;
    };
    expectQuestion(boxes, QMessageBox::Cancel);
    GetParam().leave(screen);
    EXPECT_EQ(screen.focused(), QString::fromUtf16(GetParam().to));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !screen.save.isDown(); }));
    EXPECT_EQ(screen.told.filter(QStringLiteral("lost")).size(), 1);
}

TEST_P(LeavingTest, ValidateRunsBeforeTheFocusMovesAndCanHoldIt) {
    bool holds = true;
    screen.validateRule = [&](const Control&) {
        return holds;
    };
    const QString asked = QStringLiteral("validate text(0), focus text(0)");
    GetParam().leave(screen);
    EXPECT_EQ(screen.told, QStringList(asked));
    EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));
    EXPECT_FALSE(isAny(effectsOn(screen)));
    holds = false;
    screen.told.clear();
    GetParam().leave(screen);
    EXPECT_EQ(screen.told.value(0), asked);
    EXPECT_EQ(screen.focused(), QString::fromUtf16(GetParam().to));
}

INSTANTIATE_TEST_SUITE_P(EveryWay, LeavingTest, testing::ValuesIn(waysOut()),
                         [](const auto& way) { return way.param.name; });

class FocusGuardTest : public testing::Test {
  protected:
    KitScreen screen;
    support::ScriptedBoxes boxes;
};

TEST_F(FocusGuardTest, GotFocusComesAfterTheLeavingAndTheFieldKnowsIt) {
    screen.key(Qt::Key_Tab);
    EXPECT_EQ(screen.told, QStringList({QStringLiteral("lost text(0) to text(1)"),
                                        QStringLiteral("got text(1)")}));
    QTest::keyClicks(&screen.text[1], QStringLiteral("5"));
    EXPECT_EQ(screen.text[1].text(), QStringLiteral("5"));
}

TEST_F(FocusGuardTest, TheFocusSentToAThirdControlIsItsOnlyGotFocus) {
    screen.rule = [&](const Control&, const Control&) {
        screen.text[2].setFocus();
        return Leave::Go;
    };
    screen.press(screen.save);
    EXPECT_EQ(screen.told,
              QStringList({QStringLiteral("lost text(0) to save"), QStringLiteral("got text(2)")}));
    EXPECT_EQ(screen.focused(), QStringLiteral("text(2)"));
}

TEST_F(FocusGuardTest, BoxesMenusAndOtherWindowsAreNoLeaving) {
    screen.rule = [](const Control&, const Control&) {
        return Leave::Hold;
    };
    expectQuestion(boxes, QMessageBox::Cancel);
    forms::showMessage(&screen, question);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));

    QMenu menu;
    menu.addAction(QStringLiteral("Kopírovať"));
    menu.popup(screen.mapToGlobal(QPoint(5, 5)));
    QTest::keyClick(&menu, Qt::Key_Escape);

    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));

    EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));
    EXPECT_EQ(screen.told, QStringList());
}

TEST_F(FocusGuardTest, AnOpenedDropDownIsNoLeavingOfIt) {
    screen.guard.watch(&screen.combo, screen);
    screen.combo.setFocus();
    screen.told.clear();
    screen.press(screen.combo);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_EQ(screen.focused(), QStringLiteral("combo"));
    EXPECT_EQ(screen.told, QStringList());
}

TEST_F(FocusGuardTest, AViewIsOneControlWithItsEditor) {
    screen.guard.watch(&screen.list, screen);
    screen.list.item(0)->setFlags(screen.list.item(0)->flags() | Qt::ItemIsEditable);
    screen.list.setFocus();
    screen.told.clear();
    screen.list.editItem(screen.list.item(0));
    ASSERT_NE(QApplication::focusWidget(), &screen.list);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(screen.focused(), QStringLiteral("list"));
    EXPECT_EQ(screen.told, QStringList());
}

TEST_F(FocusGuardTest, AHiddenOrDisabledFieldIsToldButCannotBeHeld) {
    QList<bool> enabled;
    screen.rule = [&](const Control& field, const Control&) {
        enabled += field.isEnabled();
        return Leave::Hold;
    };
    screen.text[0].setEnabled(false);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(1)"));
    screen.text[1].hide();
    EXPECT_EQ(screen.focused(), QStringLiteral("text(2)"));
    EXPECT_EQ(
        screen.told,
        QStringList({QStringLiteral("lost text(0) to text(1)"), QStringLiteral("got text(1)"),
                     QStringLiteral("lost text(1) to text(2)"), QStringLiteral("got text(2)")}));
    EXPECT_EQ(enabled, QList<bool>({false, true}));
}

TEST_F(FocusGuardTest, StornoValidatesNothingAndTheCheckIsLeftPending) {
    const auto towardsStorno = [](const Control&, const Control& now) {
        return now.causesValidation() ? Leave::Hold : Leave::Pending;
    };
    const auto ways = {+[](KitScreen& s) { s.press(s.storno); },
                       +[](KitScreen& s) {
                           s.storno.setFocus();
                           s.key(Qt::Key_Return);
                       },
                       +[](KitScreen& s) {
                           s.key(Qt::Key_Escape);
                       }};
    for (const auto& way : ways) {
        screen.text[0].setFocus();
        screen.told.clear();
        screen.rule = towardsStorno;
        screen.validateRule = [](const Control&) {
            return true;
        };
        way(screen);
        EXPECT_EQ(screen.told.count(QStringLiteral("storno")), 1);
        EXPECT_TRUE(screen.told.filter(QStringLiteral("validate")).isEmpty());
        // Going on from Storno, the field is asked after all.
        screen.validateRule = nullptr;
        screen.press(screen.save);
        EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));
        EXPECT_FALSE(screen.told.contains(QStringLiteral("save")));
        screen.rule = nullptr;
    }
}

TEST_F(FocusGuardTest, ValidateIsOwedWhenTheFocusGoesOnFromStorno) {
    screen.validateRule = [](const Control&) {
        return true;
    };
    screen.press(screen.storno);
    EXPECT_EQ(screen.focused(), QStringLiteral("storno"));
    screen.press(screen.text[1]);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(0)"));
    EXPECT_TRUE(screen.told.contains(QStringLiteral("validate text(0), focus text(0)")));
}

TEST_F(FocusGuardTest, KeysCanBeConsumedAndCharactersDropped) {
    QList<int> keys;
    screen.onKey = [&](const Control& field, int& key) {
        keys += key;
        if (key == Qt::Key_Return)
            screen.text[field.index() + 1].setFocus();
        if (key == Qt::Key_F2)
            key = 0;
    };
    screen.onlyDigits = true;
    for (const int key : {Qt::Key_1, Qt::Key_A, Qt::Key_2, Qt::Key_Backspace, Qt::Key_F2})
        screen.key(key);
    EXPECT_EQ(screen.text[0].text(), QStringLiteral("1"));
    screen.key(Qt::Key_Enter);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(1)"));
    EXPECT_EQ(keys, QList<int>({Qt::Key_1, Qt::Key_A, Qt::Key_2, Qt::Key_Backspace, Qt::Key_F2,
                                Qt::Key_Return}));
    EXPECT_FALSE(screen.told.contains(QStringLiteral("save"))) << "Enter pressed a button";
}

TEST_F(FocusGuardTest, CheckedByAKeyTheFieldIsNotCheckedAgain) {
    int checks = 0;
    screen.onKey = [&](const Control& field, int& key) {
        if (key != Qt::Key_Return)
            return;
        ++checks;
        field.setTag(QStringLiteral("BK"));
        screen.text[1].setFocus();
    };
    screen.rule = [&](const Control& field, const Control&) {
        checks += field.tag() == u"BK" ? 0 : 1;
        return Leave::Go;
    };
    screen.key(Qt::Key_Return);
    EXPECT_EQ(checks, 1);
    screen.press(screen.save);
    EXPECT_EQ(checks, 2);
}

TEST_F(FocusGuardTest, PressTabActsAsTab) {
    screen.onKey = [](const Control&, int& key) {
        if (key == Qt::Key_Down) {
            key = 0;
            forms::pressTab();
        }
    };
    screen.key(Qt::Key_Down);
    screen.key(Qt::Key_Down);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(2)"));
}

TEST_F(FocusGuardTest, TextsSetByProgramRaiseNoEvent) {
    screen.text[0].setText(QStringLiteral("Anna"));
    screen.text[0].trimAndSelect();
    EXPECT_EQ(screen.told, QStringList());
    screen.key(Qt::Key_B);
    EXPECT_EQ(screen.told, QStringList(QStringLiteral("change text(0)")));
}

TEST_F(FocusGuardTest, AnEngineErrorInARuleIsReportedAndNothingIsHeld) {
    screen.rule = [](const Control&, const Control&) -> Leave {
        throw store::EngineError(store::ErrorNumber::SyntaxError, QStringLiteral("Chyba."));
    };
    boxes.expect(support::ExpectedBox{.text = QStringLiteral("Chyba č. 3075\n\nChyba."),
                                      .icon = QMessageBox::Critical});
    screen.key(Qt::Key_Tab);
    EXPECT_EQ(screen.focused(), QStringLiteral("text(1)"));
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
    EXPECT_EQ(screen.told, QStringList({QStringLiteral("storno"), QStringLiteral("save")}));
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(FocusGuardTest, EntryFieldsKeepToTheirLimitButLoseNoStoredText) {
    auto& field = screen.text[0];
    field.setMaxTyped(5);
    field.limitTo(3);
    QTest::keyClicks(&field, QStringLiteral("12345"));
    EXPECT_EQ(field.text(), QStringLiteral("123"));
    EXPECT_TRUE(field.dataChanged());
    field.showBound(QStringLiteral("123456"));
    EXPECT_EQ(field.text(), QStringLiteral("123456"));
    EXPECT_FALSE(field.dataChanged());
    field.showBound(QString());
    QTest::keyClicks(&field, QStringLiteral("12345"));
    EXPECT_EQ(field.text(), QStringLiteral("123"));
}
