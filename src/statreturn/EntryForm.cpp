#include "statreturn/EntryForm.h"

#include "card/Buttons.h"
#include "forms/Colours.h"
#include "forms/FlowLayout.h"
#include "forms/KeyHint.h"
#include "forms/MessageBox.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QShortcut>

namespace statreturn {

namespace {

forms::EntryField* fieldOf(const forms::Control& control) {
    return qobject_cast<forms::EntryField*>(control.widget());
}

} // namespace

EntryForm::EntryForm(store::DBEngine& engine, const QString& name, const QString& title,
                     QWidget* parent)
    : QDialog(parent), engine_(engine), actions_(engine, *this), guard_(this) {
    setObjectName(name);
    setWindowTitle(title);
    card::setGround(*this, QPalette::Window, forms::screenColour);
}

forms::EntryField* EntryForm::makeField(const QString& array, int index, QWidget* parent) {
    auto* made = new forms::EntryField(parent);
    made->setDigitsOnly(true);
    guard_.watch(made, array, index, *this);
    return made;
}

QLayout* EntryForm::makeLastLine(const char16_t* writes, const char16_t* drops,
                                 const char16_t* keys) {
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::First);
    line->addWidget(new forms::KeyHint(QString::fromUtf16(keys), this));
    const std::array<card::ButtonRow, 2> table = {{{writes, u"&Zápis"}, {drops, u"&Storno"}}};
    const auto buttons = card::makeButtons(
        table, this, [this](int place) { place == 0 ? writeAndClose() : storno(); });
    for (QPushButton* button : buttons)
        line->addWidget(button);
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), this);
    connect(shortcut, &QShortcut::activated, this, [write = buttons.front()] {
        if (forms::moveFocus(write))
            write->click();
    });
    return line;
}

void EntryForm::keepWords(const store::ProgramFolder& folder, const QString& name,
                          words::Place place) {
    words_.emplace(*this, engine_, folder, QString());
    words_->add(std::move(place));
    words_->begin({}, name);
}

void EntryForm::storno() {
    words_->dropped();
    actions_.perform([this] { drop(); });
    done(Rejected);
}

void EntryForm::gotFocus(const forms::Control& control) {
    if (forms::EntryField* field = fieldOf(control)) {
        card::setGround(*field, QPalette::Base, forms::entryColour);
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
    if (mayDrop())
        storno();
}

void EntryForm::closeEvent(QCloseEvent* event) {
    if (isVisible() && !endsByFrame())
        return event->ignore();
    words_->dropped();
    done(Rejected);
}

bool EntryForm::tryToWrite() {
    words_->keep();
    const bool isWritten =
        actions_.perform([this] { actions_.write([this] { write(); }, [this] { resume(); }); });
    if (isWritten)
        words_->written();
    return isWritten;
}

void EntryForm::writeAndClose() {
    if (tryToWrite())
        accept();
}

} // namespace statreturn
