#pragma once

#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace support {

/// A message box that a test expects, and the button it presses there. An empty title stands for
/// the program's name.
struct ExpectedBox {
    QString text = {};
    QString title = {};
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    /// Presses Esc instead; `answer` is ignored.
    bool byEscape = false;
    /// Presses Enter instead, which has to be the answer.
    bool byEnter = false;
    /// Run while the box is on show, before the answer.
    std::function<void()> meanwhile = {};
};

/// A prompt for a line of text; no answer presses Esc.
struct ExpectedInput {
    QString prompt = {};
    QString title = {};
    QString initial = {};
    std::optional<QString> answer = {};
};

/// Any other modal window, named by its class or object name. The test drives it and closes it.
struct ExpectedWindow {
    QString name = {};
    std::function<void(QWidget&)> drive = {};
};

/// Runs all tests in an application that is dressed and speaks Slovak as the program does.
int runWidgetTests(int argc, char** argv);

/// Presses a widget by the mouse through the window system, and so nothing that a user could not
/// reach: at its centre, or at a place in it.
void press(QWidget& target);
void press(QWidget& target, QPoint inside);

/// A dialog for files, in which a name is typed; Esc for none.
ExpectedWindow fileDialog(
    const QString& name, const std::function<void(QWidget&)>& look = [](QWidget&) {});

/// The boxes that a test expects, in order. They are answered as a user would, by clicks and keys
/// on the real box. A box that is not expected, or differs, fails the test and is dismissed; one
/// that never came fails it in the destructor.
class ScriptedBoxes : public QObject {
    Q_OBJECT
  public:
    ScriptedBoxes();
    ~ScriptedBoxes() override;
    Q_DISABLE_COPY_MOVE(ScriptedBoxes)

    void expect(ExpectedBox box) { expected_.emplace_back(std::move(box)); }
    /// A box with nothing to decide.
    void expectTold(const QString& text, const QString& title = {},
                    QMessageBox::Icon icon = QMessageBox::Information) {
        expect(ExpectedBox{.text = text, .title = title, .icon = icon});
    }
    void expectAsked(const QString& text, const QString& title, QMessageBox::Icon icon,
                     QMessageBox::StandardButtons buttons, QMessageBox::StandardButton answer) {
        expect(ExpectedBox{
            .text = text, .title = title, .icon = icon, .buttons = buttons, .answer = answer});
    }
    void expect(ExpectedInput input) { expected_.emplace_back(std::move(input)); }
    void expect(ExpectedWindow window) { expected_.emplace_back(std::move(window)); }
    /// True when all of them have come.
    bool isEmpty() const { return expected_.empty(); }
    /// Fails the test for each box that has not come, and forgets it.
    void allCame();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Expected = std::variant<ExpectedBox, ExpectedInput, ExpectedWindow>;
    void answer(QWidget& window);
    void meet(const ExpectedBox& expected, QWidget& window);
    void meet(const ExpectedInput& expected, QWidget& window);
    void meet(const ExpectedWindow& expected, QWidget& window);

    std::deque<Expected> expected_;
};

} // namespace support

/// GoogleTest prints texts readably.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE
