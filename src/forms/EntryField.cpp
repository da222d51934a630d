#include "forms/EntryField.h"

#include <algorithm>

namespace forms {

namespace {

constexpr int unlimited = 32767;

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

void EntryField::showBound(const QString& text) {
    shown_ = text;
    applyLimit();
    // What is selected stays so when the row is shown anew, as when it is opened for an edit.
    if (text != this->text())
        setText(text);
}

void EntryField::trimAndSelect() {
    const QString trimmed = text().trimmed();
    if (trimmed != text())
        setText(trimmed);
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

} // namespace forms
