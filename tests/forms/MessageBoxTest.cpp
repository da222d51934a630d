#include "forms/MessageBox.h"

#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>

#include <gtest/gtest-spi.h>

using support::ScriptedBoxes;
using namespace Qt::StringLiterals;

namespace {

using B = QMessageBox;

TEST(MessageBoxTest, escCostsNothing) {
    const std::pair<B::StandardButtons, B::StandardButton> cases[] = {
        {B::Ok, B::Ok},
        {B::Yes | B::No, B::No},
        {B::Yes | B::No | B::Cancel, B::Cancel},
        {B::Retry | B::Cancel, B::Cancel},
        {B::Abort | B::Retry | B::Ignore, B::Retry},
    };
    for (const auto& [buttons, expected] : cases) {
        ScriptedBoxes boxes;
        boxes.expect({.text = u"?"_s, .buttons = buttons, .byEscape = true});
        EXPECT_EQ(forms::showMessage(nullptr, {.text = u"?"_s, .buttons = buttons}), expected);
    }
}

TEST(MessageBoxTest, standardButtonsAreSlovakAndTextsPlain) {
    const QString text = u"<b>Novák</b> & <img src='x'>\ndruhý riadok"_s;
    const auto buttons = B::Yes | B::No | B::Cancel | B::Abort | B::Retry | B::Ignore;
    QStringList captions;
    const auto note = [&captions] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        for (const QAbstractButton* button : box->buttons())
            captions << button->text().remove(u'&');
        captions.sort();
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
    };
    ScriptedBoxes boxes;
    boxes.expect({.text = text, .buttons = buttons, .answer = B::Retry, .meanwhile = note});
    forms::showMessage(nullptr, {.text = text, .buttons = buttons});
    EXPECT_EQ(captions.join(u' '), u"Ignorovať Nie Opakovať Prerušiť Zrušiť Áno"_s);
}

TEST(MessageBoxTest, givesTheWindowItsActivationBack) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ScriptedBoxes boxes;
    boxes.expect({.text = u"?"_s});
    forms::showMessage(&window, {.text = u"?"_s});
    EXPECT_TRUE(window.isActiveWindow()) << "a move of the focus would be told later";
}

TEST(AskTextTest, givesTheAnswerOrNothing) {
    const QString prompt = u"Zadaj <rok>"_s;
    const QString title = u"Školský rok"_s;
    ScriptedBoxes boxes;
    boxes.expect({.prompt = prompt, .title = title, .initial = u"05/06"_s, .answer = u"Čižmár"_s});
    boxes.expect({.prompt = prompt, .title = title, .initial = {}, .answer = std::nullopt});
    EXPECT_EQ(forms::askText(nullptr, prompt, title, u"05/06"_s), u"Čižmár"_s);
    EXPECT_EQ(forms::askText(nullptr, prompt, title), std::nullopt);
    boxes.expect({.name = u"QInputDialog"_s, .drive = [](QWidget& shown) {
                      EXPECT_GE(shown.width(), 340) << "too narrow for a name";
                      dynamic_cast<QInputDialog&>(shown).reject();
                  }});
    EXPECT_EQ(forms::askText(nullptr, u"?"_s, title), std::nullopt);
}

/// Expects one box and shows another; none for an empty text.
void expectAndShow(const QString& expected, const QString& shown) {
    ScriptedBoxes boxes;
    if (!expected.isEmpty())
        boxes.expect({.text = expected});
    if (!shown.isEmpty())
        forms::showMessage(nullptr, {.text = shown});
}

TEST(ScriptedBoxesTest, failsOnSurplusShortageAndDifference) {
    EXPECT_NONFATAL_FAILURE(expectAndShow({}, u"?"_s), "not expected");
    EXPECT_NONFATAL_FAILURE(expectAndShow(u"?"_s, {}), "did not come");
    EXPECT_NONFATAL_FAILURE(expectAndShow(u"!"_s, u"?"_s), "box->text()");
}

} // namespace
