// The menu, the keys and the status bar of the main window.
#include "forms/Guard.h"
#include "forms/KeyHint.h"
#include "forms/Metrics.h"
#include "mainwindow/ButtonPanel.h"
#include "mainwindow/FrmUvod.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>

#include <array>
#include <vector>

namespace mainwindow {

namespace {

/// An entry of a menu; one without a name is a separator.
struct ItemTraits {
    QStringView name = {};
    QStringView caption = {};
    Screen screen = {};
};

struct MenuTraits {
    QStringView name;
    QStringView caption;
    std::vector<ItemTraits> items;
};

const std::array<MenuTraits, 3>& menus() {
    static const std::array<MenuTraits, 3> table{{
        {u"mnuTlac",
         u"&Tlač",
         {{u"mniVek", u"Zostava klientov zoradena podľa &veku", Screen::PrintVek},
          {u"mniVzd", u"Zostava klientov zoradená podľa spôsobu vz&delávania", Screen::PrintVzd},
          {u"mniZam", u"&Evidenčný počet zamestnancov", Screen::PrintZam},
          {u"mniOdbStar", u"&Odborná starostlivosť", Screen::PrintOdbStar},
          {u"mniDopUkaz", u"Do&pĺňajúce ukazovatele", Screen::PrintDopUkaz},
          {u"mniZozKlient", u"&Zoznam klientov", Screen::PrintZozKlient},
          {},
          {u"mniVykaz", u"&Celý výkaz", Screen::PrintReturn},
          {u"mniKlientVykaz", u"&Klienti vo výkaze", Screen::ClientsInReturn}}},
        {u"mnuServis",
         u"&Servis",
         {{u"mniArchiv", u"&Archivácia dát", Screen::Archive},
          {u"mniDearchiv", u"&Obnova archivovaných dát", Screen::Restore},
          {},
          {u"mniZalohy", u"&Zálohy…", Screen::Copies},
          {u"mniKontrola", u"&Kontrola údajov…", Screen::DataCheck},
          {u"mniSlova", u"&Rozpísané slová…", Screen::KeptWords},
          {},
          {u"mniPomoc", u"&Pomocník (F1)", Screen::Help},
          {u"mniOProgr", u"O pro&grame", Screen::About}}},
        // A menu without items acts on its own click.
        {u"mnuKoniec", u"&Koniec", {}},
    }};
    return table;
}

} // namespace

void FrmUvod::buildMenu() {
    for (const MenuTraits& traits : menus()) {
        QAction* action = nullptr;
        if (traits.items.empty()) {
            action = menuBar()->addAction(traits.caption.toString());
            connect(action, &QAction::triggered, this, &FrmUvod::koniec);
        } else {
            QMenu* menu = menuBar()->addMenu(traits.caption.toString());
            menu->setObjectName(traits.name.toString());
            action = menu->menuAction();
            for (const ItemTraits& item : traits.items)
                addItem(*menu, item.name, item.caption, item.screen);
        }
        action->setObjectName(traits.name.toString());
    }
}

void FrmUvod::addItem(QMenu& menu, QStringView name, QStringView caption, Screen screen) {
    if (name.isEmpty()) {
        menu.addSeparator();
        return;
    }
    QAction* entry = menu.addAction(caption.toString());
    entry->setObjectName(name.toString());
    connect(entry, &QAction::triggered, this,
            [this, screen] { forms::guarded(this, [&] { openScreen(screen); }); });
}

void FrmUvod::buildKeys() {
    const auto onKey = [this](const QString& key, const auto& action) {
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, action);
    };
    onKey(QStringLiteral("F10"),
          [this, first = menuBar()->actions().constFirst()] { openMenu(first); });
    for (int number = 1; number <= ButtonColours::buttons; ++number)
        onKey(QStringLiteral("Ctrl+%1").arg(number), [this, number] {
            panel_->button(number)->setFocus();
            panel_->button(number)->click();
        });
}

// A menu that was opened by a key has its first item chosen.
void FrmUvod::openMenu(QAction* action) {
    menuBar()->setActiveAction(action);
    action->menu()->setActiveAction(action->menu()->actions().constFirst());
}

void FrmUvod::buildStatus() {
    auto* keys =
        new forms::KeyHint(QStringLiteral("F1 pomocník  ·  F10 menu  ·  Ctrl+1 až Ctrl+6 tlačidlá "
                                          " ·  písmená filtrujú  ·  Ctrl+N nový  ·  "
                                          "Enter oprava  ·  Del výmaz  ·  Ctrl+F hľadaj  ·  "
                                          "F3 ďalej  ·  Ctrl+T trieď"));
    keys->setContentsMargins(0, 0, forms::gap, 2);
    keys->setObjectName(QStringLiteral("lblKlavesy"));
    statusBar()->addPermanentWidget(keys);
    state_ = new QLabel;
    state_->setObjectName(QStringLiteral("lblStav"));
    statusBar()->addWidget(state_, 1);
    statusBar()->setSizeGripEnabled(false);
}

} // namespace mainwindow
