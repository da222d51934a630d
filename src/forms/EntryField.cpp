#include "forms/EntryField.h"

#include "forms/AltLetter.h"
#include "forms/Letters.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace forms {

namespace {

constexpr int unlimited = 32767;

bool endsLine(QChar character) {
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator ||
           character == QChar::Tabulation || character == QChar::LineFeed ||
           character == QChar::CarriageReturn;
}

QString inOneLine(const QString& text) {
    QString line;
    bool broken = false;
    for (const QChar character : text) {
        broken = broken || endsLine(character);
        if (isInvisible(character) || endsLine(character) || (broken && character.isSpace()))
            continue;
        if (std::exchange(broken, false) && !line.isEmpty() && !line.back().isSpace())
            line += u' ';
        line += character;
    }
    return line;
}

QString digitsOf(QString text) {
    return text.removeIf([](QChar character) { return character < u'0' || character > u'9'; });
}

} // namespace

EntryField::EntryField(QWidget* parent) : QLineEdit(parent) {}

void EntryField::setMaxTyped(int characters) {
    ownLimit_ = characters;
    applyLimit();
}

void EntryField::limitTo(int characters) {
    columnLimit_ = characters;
    applyLimit();
}

void EntryField::setText(const QString& text) {
    if (text == this->text())
        return;
    {
        const QSignalBlocker silent(this);
        selectAll();
        insert(text);
    }
    Q_EMIT textChanged(this->text());
}

void EntryField::showBound(const QString& text) {
    shown_ = text;
    applyLimit();
    // What is selected, and can be undone, stays so when the row is shown anew, as when it is
    // opened for an edit.
    if (text != this->text())
        QLineEdit::setText(text);
}

void EntryField::trimAndSelect() {
    setText(text().trimmed());
    selectAll();
}

void EntryField::applyLimit() {
    int limit = unlimited;
    if (ownLimit_ > 0)
        limit = ownLimit_;
    if (columnLimit_ > 0)
        limit = std::min(limit, columnLimit_);
    // A stored text that is longer than the field must not lose its end by being shown.
    limit = std::max(limit, int(shown_.size()));
    if (limit != maxLength())
        setMaxLength(limit);
}

QString EntryField::fitting(const QString& foreign) const {
    return digitsOnly_ ? digitsOf(foreign) : inOneLine(foreign);
}

void EntryField::pasteFrom(QClipboard::Mode mode) {
    if (!isReadOnly())
        insert(fitting(QGuiApplication::clipboard()->text(mode)));
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    if (isLetterForAlt(*event))
        event->ignore();
    else if (event->matches(QKeySequence::Paste))
        pasteFrom(QClipboard::Clipboard);
    else
        QLineEdit::keyPressEvent(event);
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton)
        return QLineEdit::mouseReleaseEvent(event);
    if (QGuiApplication::clipboard()->supportsSelection()) {
        deselect();
        pasteFrom(QClipboard::Selection);
    }
}

void EntryField::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    for (QAction* action : menu->actions()) {
        // The one that leads to the pasting of the line edit itself.
        if (QObject::disconnect(action, SIGNAL(triggered()), this, SLOT(paste())))
            connect(action, &QAction::triggered, this,
                    [this] { pasteFrom(QClipboard::Clipboard); });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void EntryField::dropEvent(QDropEvent* event) {
    QMimeData fit;
    fit.setText(fitting(event->mimeData()->text()));
    QDropEvent dropped(event->position(), event->possibleActions(), &fit, event->buttons(),
                       event->modifiers());
    dropped.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&dropped);
    event->setDropAction(dropped.dropAction());
    event->setAccepted(dropped.isAccepted());
}

} // namespace forms
