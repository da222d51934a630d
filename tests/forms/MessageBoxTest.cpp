#include "forms/MessageBox.h"

#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QTest>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using support::ScriptedBoxes;

namespace {

struct EscCase {
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton expected;
};

class EscTest : public testing::TestWithParam<EscCase> {};

TEST_P(EscTest, refuses) {
    ScriptedBoxes boxes;
    boxes.expect({.text = QStringLiteral("?"), .buttons = GetParam().buttons, .byEscape = true});
    const auto pressed =
        forms::showMessage(nullptr, {.text = QStringLiteral("?"), .buttons = GetParam().buttons});
    EXPECT_EQ(pressed, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    MessageBox, EscTest,
    testing::Values(EscCase{QMessageBox::Ok, QMessageBox::Ok},
                    EscCase{QMessageBox::Yes | QMessageBox::No, QMessageBox::No},
                    EscCase{QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                            QMessageBox::Cancel},
                    EscCase{QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Cancel},
                    EscCase{QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore,
                            QMessageBox::Abort}));

TEST(MessageBoxTest, standardButtonsAreSlovak) {
    QStringList captions;
    ScriptedBoxes boxes;
    const auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel |
                         QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    const auto note = [&captions] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        for (const QAbstractButton* button : box->buttons())
            captions << button->text().remove(u'&');
        captions.sort();
    };
    boxes.expect({.text = QStringLiteral("?"),
                  .buttons = buttons,
                  .answer = QMessageBox::Retry,
                  .meanwhile = note});
    forms::showMessage(nullptr, {.text = QStringLiteral("?"), .buttons = buttons});
    EXPECT_EQ(captions, QStringList({QStringLiteral("Ignorovať"), QStringLiteral("Nie"),
                                     QStringLiteral("Opakovať"), QStringLiteral("Prerušiť"),
                                     QStringLiteral("Zrušiť"), QStringLiteral("Áno")}));
}

TEST(MessageBoxTest, textsArePlain) {
    const QString text = QStringLiteral("<b>Novák</b> & <img src='x'>\ndruhý riadok");
    bool plain = false;
    ScriptedBoxes boxes;
    boxes.expect({.text = text, .meanwhile = [&plain] {
                      const auto* box =
                          qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                      plain = box->textFormat() == Qt::PlainText;
                  }});
    forms::showMessage(nullptr, {.text = text});
    EXPECT_TRUE(plain);
}

TEST(MessageBoxTest, givesTheWindowItsActivationBack) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ScriptedBoxes boxes;
    boxes.expect({.text = QStringLiteral("?")});
    forms::showMessage(&window, {.text = QStringLiteral("?")});
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(MessageBoxTest, engineErrorTellsNumberAndDescription) {
    ScriptedBoxes boxes;
    boxes.expect({.text = QStringLiteral("Chyba č. 3204\n\nSúbor už existuje"),
                  .icon = QMessageBox::Critical});
    forms::showEngineError(
        nullptr, {store::ErrorNumber::TargetExists, QStringLiteral("Súbor už existuje"), {}});
}

TEST(AskTextTest, givesTheAnswerOrNothing) {
    const QString prompt = QStringLiteral("Zadaj <rok>");
    const QString title = QStringLiteral("Školský rok");
    ScriptedBoxes boxes;
    boxes.expect({.prompt = prompt,
                  .title = title,
                  .initial = QStringLiteral("05/06"),
                  .answer = QStringLiteral("Čižmár")});
    boxes.expect({.prompt = prompt, .title = title, .initial = {}, .answer = std::nullopt});
    EXPECT_EQ(forms::askText(nullptr, prompt, title, QStringLiteral("05/06")),
              QStringLiteral("Čižmár"));
    EXPECT_EQ(forms::askText(nullptr, prompt, title), std::nullopt);
    boxes.expect(support::ExpectedWindow{
        .name = QStringLiteral("QInputDialog"), .drive = [](QWidget& shown) {
            EXPECT_GE(shown.width(), 340) << "too narrow for a name";
            dynamic_cast<QInputDialog&>(shown).reject();
        }});
    EXPECT_EQ(forms::askText(nullptr, QStringLiteral("?"), title), std::nullopt);
}

void showUnexpectedBox() {
    const ScriptedBoxes boxes;
    forms::showMessage(nullptr, {.text = QStringLiteral("?")});
}

void expectInVain() {
    ScriptedBoxes boxes;
    boxes.expect({.text = QStringLiteral("?")});
}

void expectAnotherText() {
    ScriptedBoxes boxes;
    boxes.expect({.text = QStringLiteral("!")});
    forms::showMessage(nullptr, {.text = QStringLiteral("?")});
}

TEST(ScriptedBoxesTest, failsOnSurplusShortageAndDifference) {
    EXPECT_NONFATAL_FAILURE(showUnexpectedBox(), "not expected");
    EXPECT_NONFATAL_FAILURE(expectInVain(), "did not come");
    EXPECT_NONFATAL_FAILURE(expectAnotherText(), "box->text()");
}

} // namespace
