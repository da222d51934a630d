#pragma once

#include "mainwindow/ButtonColours.h"
#include "mainwindow/FrmUvod.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QTableView>

#include <memory>
#include <vector>

inline constexpr auto yesNo = QMessageBox::Yes | QMessageBox::No;

/// The letter for a button's colour: . rest, h highlight, V chosen.
inline char colourLetter(const QColor& colour) {
    using namespace mainwindow;
    return colour == farbaHover   ? 'h'
           : colour == farbaVyber ? 'V'
           : colour == farbaZakl  ? '.'
                                  : '?';
}

/// The real main window over a register of its own, used by clicks and keys. The screens that it
/// opens are noted, and may be played by the test.
class MainWindow : public testing::Test {
  protected:
    MainWindow();
    ~MainWindow() override;

    void open();
    template <typename Widget>
    Widget& find(const char* name) {
        auto* widget = window->findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr)
            throw std::runtime_error(std::string("no ") + name);
        return *widget;
    }
    bool enabled(const char* name) { return find<QWidget>(name).isEnabled(); }
    bool shown(const char* name) { return find<QWidget>(name).isVisible(); }
    QString caption(const char* name) { return find<QWidget>(name).property("text").toString(); }
    /// Presses the widget through the window system, at its centre or at a point of it.
    void click(const char* name) { support::press(find<QWidget>(name)); }
    void clickAt(const char* name, const QPoint& at) { support::press(find<QWidget>(name), at); }
    void moveTo(const char* name, const QPoint& at);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    QString focused();
    /// The texts of a row of a grid, joined by "|"; of the current row without a number.
    QString row(const char* grid, int row = -1);

    void addClient(const char* key, const char* firstName, const char* surname,
                   const char* number = "", const char* born = nullptr);
    void addEmployee(const char* key, const char* firstName, const char* surname, int function = 1);
    void expectBox(const char* text, const char* title, QMessageBox::Icon icon,
                   QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                   QMessageBox::StandardButton answer = QMessageBox::Ok);
    void expectInput(const char* prompt, const char* title, const char* answer,
                     const char* initial = "");

    support::TemporaryRegister reg;
    QDate today{2006, 10, 1};
    std::vector<mainwindow::Screen> opened;
    std::function<void(mainwindow::Screen)> play = [](mainwindow::Screen) {
    };
    int runsEnded = 0;
    mainwindow::Surroundings around;
    support::ScriptedBoxes boxes;
    std::unique_ptr<mainwindow::FrmUvod> window;
};
