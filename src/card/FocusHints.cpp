#include "card/FocusHints.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/RichText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QTextEdit>
#include <QVariant>

namespace card {

namespace {

// Where the screens' tables keep them, in the widget that they are about.
constexpr const char* mandatoryProperty = "mandatory";
constexpr const char* pickProperty = "hasPick";
constexpr const char* buttonProperty = "pageKeysTo";

bool canBePressed(const QWidget& window, const QString& button) {
    const auto* found = window.findChild<QPushButton*>(button);
    return found != nullptr && found->isVisible() && found->isEnabled();
}

QStringList keysOf(const forms::EntryField& field) {
    if (field.isReadOnly())
        return {QStringLiteral("šípky čítanie"), QStringLiteral("Tab ďalšie pole")};
    QStringList keys;
    if (isMandatory(field))
        keys += QStringLiteral("* povinný údaj");
    keys += QStringLiteral("Enter ďalšie pole");
    if (field.property(pickProperty).toBool())
        keys += QStringLiteral("F4 číselník");
    if (canBePressed(*field.window(), field.property(buttonProperty).toString()))
        keys += QStringLiteral("PageDown na zápis");
    return keys;
}

QStringList keysOf(forms::RichText& text) {
    if (text.editor().isReadOnly())
        return {QStringLiteral("šípky čítanie"), QStringLiteral("Tab ďalej")};
    return {QStringLiteral("Enter nový odsek"), QStringLiteral("Tab ďalej"),
            QStringLiteral("Ctrl+B tučné"), QStringLiteral("Ctrl+Shift+L odrážky")};
}

/// Of the nearest control around the widget that is known.
QStringList keysAt(QWidget* focused) {
    for (QWidget* part = focused; part != nullptr; part = part->parentWidget()) {
        // A drop-down's own field is part of it.
        if (qobject_cast<forms::DropDown*>(part) != nullptr)
            return {QStringLiteral("F4 rozbalí zoznam"), QStringLiteral("šípky výber"),
                    QStringLiteral("Tab ďalšie pole")};
        if (auto* text = qobject_cast<forms::RichText*>(part))
            return keysOf(*text);
        if (qobject_cast<QAbstractItemView*>(part) != nullptr)
            return {QStringLiteral("šípky výber"), QStringLiteral("Tab ďalej")};
        if (qobject_cast<QRadioButton*>(part) != nullptr)
            return {QStringLiteral("šípky alebo medzera voľba"), QStringLiteral("Tab ďalej")};
        if (qobject_cast<QPushButton*>(part) != nullptr)
            return {QStringLiteral("Enter stlačí"), QStringLiteral("Tab ďalej")};
    }
    const auto* field = qobject_cast<forms::EntryField*>(focused);
    return field != nullptr ? keysOf(*field) : QStringList();
}

} // namespace

void markMandatory(QWidget& field) {
    field.setProperty(mandatoryProperty, true);
    const QString tip = field.toolTip();
    field.setAccessibleDescription((tip.isEmpty() ? QString() : tip + QStringLiteral(", ")) +
                                   QStringLiteral("povinný údaj"));
}

bool isMandatory(const QWidget& field) {
    return field.property(mandatoryProperty).toBool();
}

void markPick(QWidget& field) {
    field.setProperty(pickProperty, true);
}

void markPageKeys(QWidget& field, const QString& button) {
    field.setProperty(buttonProperty, button);
}

FocusHints::FocusHints(QLabel& line, QObject* parent) : QObject(parent), line_(line) {
    connect(qApp, &QApplication::focusChanged, this, &FocusHints::show);
}

void FocusHints::setEverywhere(const QString& before, const QString& behind) {
    before_ = before;
    behind_ = behind;
    show();
}

void FocusHints::show() {
    QStringList keys = keysAt(line_.window()->focusWidget());
    if (!before_.isEmpty())
        keys.prepend(before_);
    if (!behind_.isEmpty())
        keys += behind_;
    line_.setText(keys.join(QStringLiteral("  ·  ")));
}

} // namespace card
