#pragma once

#include "forms/EntryField.h"
#include "forms/EscButton.h"
#include "forms/FocusGuard.h"
#include "support/ScriptedBoxes.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QWheelEvent>
#include <QWindow>

#include <array>
#include <functional>
#include <optional>

namespace kittest {

using namespace Qt::StringLiterals;

/// A screen with one control of each kind, whose rules write down what they are told:
/// "got text(0)", "lost text(0) to text(1)", "validate text(0)", "key 16777220", "char 7".
class KitScreen : public QDialog, public forms::FieldEvents {
  public:
    KitScreen() : guard(this), esc(this) {
        auto* grid = new QGridLayout(this);
        for (int i = 0; i < 3; ++i) {
            guard.watch(&text[i], u"text"_s, i, *this);
            grid->addWidget(&text[i], i, 0);
        }
        save.setText(u"&Zapíš"_s);
        save.setObjectName(u"save"_s);
        storno.setObjectName(u"storno"_s);
        list.setObjectName(u"list"_s);
        list.addItems({u"prvý"_s, u"druhý"_s});
        list.setCurrentRow(0);
        combo.setObjectName(u"combo"_s);
        combo.addItems({u"M"_s, u"Z"_s});
        tabs.setObjectName(u"tabs"_s);
        tabs.addTab(u"Prvá"_s);
        tabs.addTab(u"Druhá"_s);
        int row = 0;
        for (QWidget* widget :
             std::initializer_list<QWidget*>{&save, &storno, &list, &combo, &tabs})
            grid->addWidget(widget, row++, 1);
        connect(&save, &QPushButton::clicked, this, [this] { log(u"save"_s); });
        connect(&storno, &QPushButton::clicked, this, [this] { log(u"storno"_s); });
        esc.set(&storno);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        text[0].setFocus();
        told.clear();
    }

    void gotFocus(const forms::Control& control) override { log(u"got "_s + describe(control)); }
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override {
        log(u"lost %1 to %2"_s.arg(describe(control), describe(now)));
        return rule ? rule(control, now) : forms::Leave::Go;
    }
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers /*m*/) override {
        if (onKey)
            onKey(control, key);
    }
    void keyPress(const forms::Control& /*control*/, QChar& character) override {
        if (onlyDigits && character.unicode() >= u' ' && !character.isDigit())
            character = QChar::Null;
    }
    bool validates(const forms::Control& /*control*/) const override { return holds.has_value(); }
    bool validate(const forms::Control& control) override {
        log(u"validate %1, focus %2"_s.arg(describe(control),
                                           QApplication::focusWidget()->objectName()));
        return *holds;
    }
    void change(const forms::Control& control) override { log(u"change "_s + describe(control)); }

    void log(const QString& line) { told += line; }
    /// All that was told since, one behind the other.
    QString heard() const { return told.join(u"; "_s); }
    /// The control in focus once the windows have settled.
    QString focused() {
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return isActiveWindow() || QApplication::activePopupWidget() != nullptr; }));
        return focusWidget() != nullptr ? focusWidget()->objectName() : QString();
    }
    QPoint centreOf(QWidget& widget) { return widget.mapTo(this, widget.rect().center()); }
    static void press(QWidget& widget) { support::press(widget); }
    void clickRow(int row) {
        support::press(*list.viewport(), list.visualItemRect(list.item(row)).center());
    }
    void clickTab(int tab) { support::press(tabs, tabs.tabRect(tab).center()); }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(windowHandle(), Qt::Key(code), modifiers);
    }

    std::array<forms::EntryField, 3> text;
    QPushButton save, storno;
    QListWidget list;
    QComboBox combo;
    QTabBar tabs;
    QStringList told;
    using Rule = std::function<forms::Leave(const forms::Control&, const forms::Control&)>;
    /// Sets what is done when a field is left, or answered each time.
    void onLeaving(const Rule& leave) { rule = leave; }
    void answerLeaving(forms::Leave answer) {
        onLeaving([answer](const auto&, const auto&) { return answer; });
    }

    Rule rule;
    /// Whether validation holds the focus; without a value nothing is validated.
    std::optional<bool> holds;
    std::function<void(const forms::Control&, int&)> onKey;
    bool onlyDigits = false;
    forms::FocusGuard guard;
    forms::EscButton esc;

  private:
    static QString describe(const forms::Control& control) {
        return forms::elementName(control.name(), control.index());
    }
};

} // namespace kittest
