#pragma once

#include "mainwindow/ButtonColours.h"
#include "mainwindow/FrmUvod.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QApplication>
#include <QTableView>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <vector>

inline constexpr auto yesNo = QMessageBox::Yes | QMessageBox::No;

/// The letter for a button's colour: . rest, h highlight, V chosen.
inline char colourLetter(const QColor& colour) {
    const QColor known[] = {mainwindow::farbaZakl, mainwindow::farbaHover, mainwindow::farbaVyber};
    return ".hV?"[std::ranges::find(known, colour) - known];
}

/// The real main window over a register of its own, used by clicks and keys. The screens that it
/// opens are noted, and may be played by the test.
class MainWindow : public testing::Test {
  protected:
    void open() {
        reg.letGo();
        window->open();
        if (!window->isVisible())
            return;
        // A box may come in between, after which the window has to be made active again, or is
        // closed.
        ASSERT_TRUE(QTest::qWaitFor([this] {
            if (!window->isActiveWindow())
                window->activateWindow();
            return window->isActiveWindow() || !window->isVisible();
        }));
    }
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
    void moveTo(const char* name, const QPoint& at) {
        QTest::mouseMove(window->windowHandle(), find<QWidget>(name).mapTo(window.get(), at));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    QString focused() {
        const QWidget* focus = window->focusWidget();
        return focus != nullptr ? focus->objectName() : QString();
    }
    /// The texts of a row of a grid, joined by "|"; of the current row without a number.
    QString row(const char* grid, int row = -1) {
        const auto& view = find<QTableView>(grid);
        const int shown = row >= 0 ? row : view.currentIndex().row();
        QStringList texts;
        for (int column = 0; column < view.model()->columnCount(); ++column)
            texts << view.model()->index(shown, column).data().toString();
        return texts.join(u'|');
    }

    void addClient(const char* key, const char* firstName, const char* surname,
                   const char* number = "", const char* born = nullptr) {
        const QDate day = QDate::fromString(QString::fromUtf8(born), Qt::ISODate);
        reg.add(QStringLiteral("k_zaklad"),
                {{u"idkod", QString::fromUtf8(key)},
                 {u"meno", QString::fromUtf8(firstName)},
                 {u"priezv", QString::fromUtf8(surname)},
                 {u"katcis", QString::fromUtf8(number)},
                 {u"datnar", day.isValid() ? store::Value(day) : store::Value()}});
    }
    void addEmployee(const char* key, const char* firstName, const char* surname,
                     int function = 1) {
        reg.add(QStringLiteral("zamestnanci"), {{u"idkod", QString::fromUtf8(key)},
                                                {u"meno", QString::fromUtf8(firstName)},
                                                {u"priezv", QString::fromUtf8(surname)},
                                                {u"prac_zar", function}});
    }
    void expectBox(const char* text, const char* title, QMessageBox::Icon icon,
                   QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                   QMessageBox::StandardButton answer = QMessageBox::Ok) {
        boxes.expectAsked(QString::fromUtf8(text), QString::fromUtf8(title), icon, buttons, answer);
    }
    void expectInput(const char* prompt, const char* title, const char* answer,
                     const char* initial = "") {
        boxes.expect({.prompt = QString::fromUtf8(prompt),
                      .title = QString::fromUtf8(title),
                      .initial = QString::fromUtf8(initial),
                      .answer = answer != nullptr ? std::optional(QString::fromUtf8(answer))
                                                  : std::nullopt});
    }

    support::TemporaryRegister reg;
    QDate today{2006, 10, 1};
    std::vector<mainwindow::Screen> opened;
    std::function<void(mainwindow::Screen)> play = [](mainwindow::Screen) {
    };
    int runsEnded = 0;
    mainwindow::Surroundings around{reg.engine, reg.folder, [this] { return today; },
                                    [this](mainwindow::Screen screen, mainwindow::FrmUvod&) {
                                        opened.push_back(screen);
                                        play(screen);
                                    },
                                    [this] {
                                        ++runsEnded;
                                    }};
    support::ScriptedBoxes boxes;
    std::unique_ptr<mainwindow::FrmUvod> window = std::make_unique<mainwindow::FrmUvod>(around);
};
