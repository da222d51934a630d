#pragma once

#include "forms/EntryField.h"
#include "forms/EscButton.h"
#include "forms/FocusGuard.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace kittest {

/// A screen with one control of each kind, whose rules write down what they are told:
/// "got text(0)", "lost text(0) to text(1)", "validate text(0)", "key 16777220", "char 7".
class KitScreen : public QDialog, public forms::FieldEvents {
  public:
    KitScreen() : guard(this), esc(this) {
        auto* grid = new QGridLayout(this);
        for (int i = 0; i < 3; ++i) {
            guard.watch(&text[i], QStringLiteral("text"), i, *this);
            grid->addWidget(&text[i], i, 0);
        }
        save.setText(QStringLiteral("&Zapíš"));
        save.setObjectName(QStringLiteral("save"));
        storno.setObjectName(QStringLiteral("storno"));
        list.setObjectName(QStringLiteral("list"));
        list.addItems({QStringLiteral("prvý"), QStringLiteral("druhý")});
        list.setCurrentRow(0);
        combo.setObjectName(QStringLiteral("combo"));
        combo.addItems({QStringLiteral("M"), QStringLiteral("Z")});
        tabs.setObjectName(QStringLiteral("tabs"));
        tabs.addTab(QStringLiteral("Prvá"));
        tabs.addTab(QStringLiteral("Druhá"));
        int row = 0;
        for (QWidget* widget :
             std::initializer_list<QWidget*>{&save, &storno, &list, &combo, &tabs})
            grid->addWidget(widget, row++, 1);
        connect(&save, &QPushButton::clicked, this, [this] { log(QStringLiteral("save")); });
        connect(&storno, &QPushButton::clicked, this, [this] { log(QStringLiteral("storno")); });
        esc.set(&storno);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        text[0].setFocus();
        told.clear();
    }

    void gotFocus(const forms::Control& control) override {
        log(QStringLiteral("got ") + describe(control));
    }
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override {
        log(QStringLiteral("lost %1 to %2").arg(describe(control), describe(now)));
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
    bool validates(const forms::Control& /*control*/) const override {
        return validateRule != nullptr;
    }
    bool validate(const forms::Control& control) override {
        log(QStringLiteral("validate %1, focus %2")
                .arg(describe(control), QApplication::focusWidget()->objectName()));
        return validateRule(control);
    }
    void change(const forms::Control& control) override {
        log(QStringLiteral("change ") + describe(control));
    }

    void log(const QString& line) { told += line; }
    /// The control in focus once the windows have settled.
    QString focused() {
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return isActiveWindow() || QApplication::activePopupWidget() != nullptr; }));
        return focusWidget() != nullptr ? focusWidget()->objectName() : QString();
    }
    QPoint centreOf(QWidget& widget) { return widget.mapTo(this, widget.rect().center()); }
    void press(const QPoint& place) {
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, place);
    }
    void press(QWidget& widget) { press(centreOf(widget)); }
    void clickRow(int row) {
        press(list.viewport()->mapTo(this, list.visualItemRect(list.item(row)).center()));
    }
    void clickTab(int tab) { press(tabs.mapTo(this, tabs.tabRect(tab).center())); }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(windowHandle(), Qt::Key(code), modifiers);
    }

    std::array<forms::EntryField, 3> text;
    QPushButton save, storno;
    QListWidget list;
    QComboBox combo;
    QTabBar tabs;
    QStringList told;
    std::function<forms::Leave(const forms::Control&, const forms::Control&)> rule;
    std::function<bool(const forms::Control&)> validateRule;
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
