#include "card/CalendarNote.h"

#include "forms/EntryField.h"
#include "forms/Metrics.h"
#include "store/Dates.h"

#include <QPalette>
#include <QStringList>

#include <algorithm>

namespace card {

namespace {

constexpr QColor wrongGround(255, 224, 178);

bool isNoDate(const forms::EntryField& field) {
    return !field.text().isEmpty() && !store::readDate(field.text());
}

} // namespace

CalendarNote::CalendarNote(QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("lblKalendar"));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignTop);
    hide();
}

void CalendarNote::watch(forms::EntryField& field) {
    fields_.push_back({&field});
    // The place of its lines is kept: a button must not move away while it is being pressed.
    setHidden(false);
    setMinimumHeight(forms::linesHigh(*this, int(fields_.size())));
    connect(&field, &QLineEdit::textChanged, this, [this, watched = fields_.size() - 1] {
        Watched& changed = fields_[watched];
        mark(changed, !changed.field->hasFocus() && isNoDate(*changed.field));
    });
}

void CalendarNote::judge(const forms::EntryField& field) {
    const auto watched = std::ranges::find(fields_, &field, &Watched::field);
    if (watched != fields_.end())
        mark(*watched, isNoDate(field));
}

void CalendarNote::mark(Watched& watched, bool isWrong) {
    if (watched.isWrong != isWrong) {
        watched.isWrong = isWrong;
        QPalette palette;
        if (isWrong) {
            palette = watched.field->palette();
            palette.setColor(QPalette::Base, wrongGround);
        }
        watched.field->setPalette(palette);
    }
    showLines();
}

void CalendarNote::showLines() {
    QStringList lines;
    for (const Watched& watched : fields_) {
        if (watched.isWrong)
            lines += QStringLiteral("%1 v kalendári nie je, do výkazu sa nezapočíta")
                         .arg(watched.field->text().trimmed());
    }
    setText(lines.join(u'\n'));
}

} // namespace card
