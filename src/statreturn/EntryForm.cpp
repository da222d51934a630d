#include "statreturn/EntryForm.h"

#include "forms/Colours.h"
#include "forms/EntryField.h"
#include "forms/MessageBox.h"
#include "store/EngineError.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace statreturn {

namespace {

constexpr QColor focusColour(128, 255, 255);

void colour(QWidget& widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, colour);
    widget.setPalette(palette);
}

forms::EntryField* fieldOf(const forms::Control& control) {
    return qobject_cast<forms::EntryField*>(control.widget());
}

} // namespace

EntryForm::EntryForm(const QString& name, const QString& title, QWidget* parent)
    : QDialog(parent), guard_(this) {
    setObjectName(name);
    setWindowTitle(title);
    colour(*this, QPalette::Window, forms::screenColour);
}

QPushButton* EntryForm::makeButton(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    colour(*button, QPalette::Button, forms::buttonColour);
    button->setMinimumSize(button->sizeHint() + QSize(16, 4));
    return button;
}

QHBoxLayout* EntryForm::makeLastLine(const QString& writes, const QString& drops,
                                     const QString& keys) {
    auto* line = new QHBoxLayout;
    auto* hint = new QLabel(keys, this);
    hint->setForegroundRole(QPalette::PlaceholderText);
    line->addWidget(hint, 1);
    QPushButton* write = makeButton(writes, QStringLiteral("Zápis"));
    QPushButton* storno = makeButton(drops, QStringLiteral("Storno"));
    line->addWidget(write);
    line->addWidget(storno);
    connect(write, &QPushButton::clicked, this, &EntryForm::writeAndClose);
    connect(storno, &QPushButton::clicked, this, [this] {
        drop();
        done(Rejected);
    });
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), this);
    connect(shortcut, &QShortcut::activated, this, [write] {
        if (forms::moveFocus(write))
            write->click();
    });
    return line;
}

void EntryForm::gotFocus(const forms::Control& control) {
    if (forms::EntryField* field = fieldOf(control)) {
        colour(*field, QPalette::Base, focusColour);
        field->trimAndSelect();
    }
}

void EntryForm::keyDown(const forms::Control& /*control*/, int& key,
                        Qt::KeyboardModifiers modifiers) {
    const bool leads = key == Qt::Key_Return || key == Qt::Key_Down;
    if (!leads || modifiers.testFlag(Qt::ControlModifier))
        return;
    key = 0;
    forms::pressTab();
}

void EntryForm::keyPress(const forms::Control& /*control*/, QChar& character) {
    if (character != u'\b' && (character < u'0' || character > u'9'))
        character = QChar::Null;
}

forms::Leave EntryForm::lostFocus(const forms::Control& control, const forms::Control& /*now*/) {
    returnFocus(control);
    if (forms::EntryField* field = fieldOf(control))
        field->setPalette({});
    return forms::Leave::Go;
}

bool EntryForm::mayDrop() {
    return !isChanged() ||
           forms::showMessage(
               this, {.text = QStringLiteral("Zadané hodnoty nie sú zapísané. Zahodiť ich ?"),
                      .title = QStringLiteral("Upozornenie"),
                      .icon = QMessageBox::Question,
                      .buttons = QMessageBox::Yes | QMessageBox::No,
                      .defaultButton = QMessageBox::No}) == QMessageBox::Yes;
}

void EntryForm::reject() {
    if (!mayDrop())
        return;
    drop();
    QDialog::reject();
}

void EntryForm::closeEvent(QCloseEvent* event) {
    if (isVisible() && !endsByFrame())
        return event->ignore();
    done(Rejected);
}

bool EntryForm::tryToWrite() {
    try {
        write();
    } catch (const store::EngineError& error) {
        forms::showEngineError(this, error);
        return false;
    }
    return true;
}

void EntryForm::writeAndClose() {
    if (tryToWrite())
        accept();
}

} // namespace statreturn
