#include "mainwindow/MainWindow.h"

#include <QApplication>
#include <QWindow>

using namespace Qt::StringLiterals;

MainWindow::MainWindow()
    : around{reg.engine, reg.folder, [this] { return today; },
             [this](mainwindow::Screen screen, mainwindow::FrmUvod&) {
                 opened.push_back(screen);
                 play(screen);
             },
             [this] {
                 ++runsEnded;
             }},
      window(std::make_unique<mainwindow::FrmUvod>(around)) {}

MainWindow::~MainWindow() = default;

void MainWindow::open() {
    reg.letGo();
    window->open();
    if (!window->isVisible())
        return;
    // A box may come in between, after which the window has to be made active again, or is closed.
    ASSERT_TRUE(QTest::qWaitFor([this] {
        if (!window->isActiveWindow())
            window->activateWindow();
        return window->isActiveWindow() || !window->isVisible();
    }));
}

void MainWindow::moveTo(const char* name, const QPoint& at) {
    QTest::mouseMove(window->windowHandle(), find<QWidget>(name).mapTo(window.get(), at));
}

void MainWindow::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window->windowHandle(), key, modifiers);
}

QString MainWindow::focused() {
    const QWidget* focus = window->focusWidget();
    return focus != nullptr ? focus->objectName() : QString();
}

QString MainWindow::row(const char* grid, int row) {
    const auto& view = find<QTableView>(grid);
    const int shown = row >= 0 ? row : view.currentIndex().row();
    QStringList texts;
    for (int column = 0; column < view.model()->columnCount(); ++column)
        texts << view.model()->index(shown, column).data().toString();
    return texts.join(u'|');
}

void MainWindow::addClient(const char* key, const char* firstName, const char* surname,
                           const char* number, const char* born) {
    const QDate day = QDate::fromString(QString::fromUtf8(born), Qt::ISODate);
    reg.add(u"k_zaklad"_s, {{u"idkod", QString::fromUtf8(key)},
                            {u"meno", QString::fromUtf8(firstName)},
                            {u"priezv", QString::fromUtf8(surname)},
                            {u"katcis", QString::fromUtf8(number)},
                            {u"datnar", day.isValid() ? store::Value(day) : store::Value()}});
}

void MainWindow::addEmployee(const char* key, const char* firstName, const char* surname,
                             int function) {
    reg.add(u"zamestnanci"_s, {{u"idkod", QString::fromUtf8(key)},
                               {u"meno", QString::fromUtf8(firstName)},
                               {u"priezv", QString::fromUtf8(surname)},
                               {u"prac_zar", function}});
}

void MainWindow::expectBox(const char* text, const char* title, QMessageBox::Icon icon,
                           QMessageBox::StandardButtons buttons,
                           QMessageBox::StandardButton answer) {
    boxes.expectAsked(QString::fromUtf8(text), QString::fromUtf8(title), icon, buttons, answer);
}

void MainWindow::expectInput(const char* prompt, const char* title, const char* answer,
                             const char* initial) {
    boxes.expect(
        {.prompt = QString::fromUtf8(prompt),
         .title = QString::fromUtf8(title),
         .initial = QString::fromUtf8(initial),
         .answer = answer != nullptr ? std::optional(QString::fromUtf8(answer)) : std::nullopt});
}
