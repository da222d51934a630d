#include "forms/TypeAhead.h"

#include "forms/EntryField.h"
#include "forms/Guard.h"
#include "forms/HitList.h"
#include "forms/RowsModel.h"

#include <QKeyEvent>

#include <algorithm>

namespace forms {

TypeAhead::TypeAhead(EntryField& field, RowsModel& rows, std::function<void()> load)
    : QObject(&field), field_(field), rows_(rows), load_(std::move(load)),
      hits_(new HitList(rows, field)) {
    field.installEventFilter(this);
    connect(&field, &QLineEdit::textEdited, this,
            [this](const QString& text) { guarded(&field_, [&] { typed(QString(text)); }); });
    connect(hits_, &QListView::clicked, this, [this](const QModelIndex& line) {
        guarded(&field_, [&] {
            choose(line.row());
            hits_->hide();
        });
    });
}

void TypeAhead::typed(const QString& text) {
    if (!field_.hasFocus())
        return;
    load_();
    const int row = rows_.find(text.trimmed());
    if (row >= 0 && !deleting_ && field_.cursorPosition() == text.size())
        complete(row, text);
    hits_->showLine(row);
}

void TypeAhead::complete(int row, const QString& text) {
    const QString value = rows_.value(row).left(field_.maxLength());
    if (value.size() <= text.size() || !value.startsWith(text, Qt::CaseInsensitive) ||
        (rows_.holdsCodes() && rows_.beginsAnother(row, text)))
        return;
    field_.setText(value);
    field_.setSelection(static_cast<int>(value.size()),
                        static_cast<int>(text.size() - value.size()));
}

bool TypeAhead::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &field_ && event->type() == QEvent::KeyPress)
        return keyPressed(*static_cast<QKeyEvent*>(event));
    return QObject::eventFilter(watched, event);
}

bool TypeAhead::keyPressed(const QKeyEvent& event) {
    const int key = event.key();
    deleting_ = key == Qt::Key_Backspace || key == Qt::Key_Delete;
    if (key == Qt::Key_Escape && hits_->isVisible()) {
        giveUp();
        return true;
    }
    const bool moves = key == Qt::Key_Down || key == Qt::Key_Up;
    if (!moves || event.modifiers() != Qt::ControlModifier || field_.isReadOnly())
        return false;
    guarded(&field_, [&] { step(key == Qt::Key_Down ? 1 : -1); });
    return true;
}

/// First the line that is shown as found, then those beside it.
void TypeAhead::step(int lines) {
    load_();
    if (rows_.rowCount() == 0)
        return;
    const QString held = field_.text().trimmed();
    int row = hits_->isVisible() ? hits_->line() : rows_.find(held);
    if (row >= 0 && rows_.value(row) == held && !field_.hasSelectedText())
        row += lines;
    choose(std::clamp(row, 0, rows_.rowCount() - 1));
}

void TypeAhead::choose(int row) {
    Q_EMIT chosen(row);
    load_();
    hits_->showLine(row);
}

void TypeAhead::giveUp() {
    hits_->hide();
    const bool isCompleted =
        field_.hasSelectedText() && field_.selectionEnd() == field_.text().size();
    if (isCompleted && field_.selectionStart() > 0)
        field_.setText(field_.text().left(field_.selectionStart()));
}

} // namespace forms
