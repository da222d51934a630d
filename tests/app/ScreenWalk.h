#pragma once

#include "mainwindow/FrmUvod.h"
#include "spelling/Speller.h"
#include "support/TemporaryRegister.h"

#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>

/// Looks at a screen that is on show.
using Look = std::function<void(QWidget& screen, const QString& name)>;

/// Opens each screen of the program over an invented register, as a user comes to them, with its
/// tabs, opened lists, menus and boxes, and leaves it again as it was.
class ScreenWalk : public QObject {
  public:
    explicit ScreenWalk(Look look);

    void walk();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void visit(QWidget& window);
    void look(QWidget& screen, const QString& what);
    void lookAtPopup(const QString& what);
    void walkMainWindow();
    void walkMenu();
    void walkInside(QWidget& window);
    void walkCard(QWidget& card);
    void walkTab(QWidget& card);
    void walkPreview(QWidget& preview);
    void openLists(QWidget& window);
    void openContextMenus(QWidget& window);
    void click(QWidget& window, const char* name);

    Look look_;
    support::TemporaryRegister reg_;
    /// Without a dictionary, which texts say in their line.
    spelling::Speller speller_{{}, {}};
    mainwindow::Surroundings around_;
    mainwindow::FrmUvod window_;
    QStringList path_;
};
