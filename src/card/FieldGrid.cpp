#include "card/FieldGrid.h"

#include "card/FocusHints.h"
#include "forms/Metrics.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

namespace card {

namespace {

/// Edges and margins of a field.
constexpr int aroundText = 16;
constexpr int longField = 20;
/// Captions with more letters stand in two lines.
constexpr int longCaption = 17;

} // namespace

void setWidth(QWidget& field, int characters) {
    setRoom(field, characters > longField ? characters * 3 / 5 : characters, characters);
}

QString captionInLines(const QString& caption) {
    const auto middle = caption.size() / 2 + 1;
    const auto blank = caption.trimmed().size() > longCaption ? caption.indexOf(u' ', middle) : -1;
    // A colon alone is no line.
    constexpr int leastLine = 3;
    return blank < 0 || caption.size() - blank <= leastLine
               ? caption
               : QString(caption).replace(blank, 1, QLatin1Char('\n'));
}

void setRoom(QWidget& control, int least, int most) {
    forms::fitToFont(control, [&control, least, most] {
        control.setMinimumWidth(forms::lettersWide(control, least) + aroundText);
        control.setMaximumWidth(forms::lettersWide(control, most) + aroundText);
    });
}

void keepPlace(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

namespace {

/// Seen beside a field; to a screen reader the field itself says what it means.
QLabel* makeStar() {
    auto* star = new QLabel(QStringLiteral("*"));
    star->setToolTip(QStringLiteral("povinný údaj"));
    return star;
}

} // namespace

FieldGrid::FieldGrid(QBoxLayout& frame, Qt::Alignment labels)
    : grid_(new QGridLayout), labels_(labels) {
    frame.setContentsMargins(forms::gap, forms::gap, forms::gap, forms::gap);
    frame.addLayout(grid_);
    grid_->setHorizontalSpacing(forms::gap);
    grid_->setVerticalSpacing(forms::tightGap);
}

void FieldGrid::add(const Place& place, const QString& label, QWidget& field, QWidget* pick) {
    auto* caption = new QLabel(captionInLines(label));
    caption->setAlignment(labels_ | Qt::AlignVCenter);
    caption->setBuddy(&field);
    auto* line = new QHBoxLayout;
    line->setSpacing(forms::tightGap);
    line->addWidget(&field, 1);
    if (pick != nullptr) {
        pick->setAccessibleName(label);
        line->addWidget(pick, 1);
        markPick(field);
    }
    if (isMandatory(field))
        line->addWidget(makeStar());
    line->addStretch();
    grid_->addWidget(caption, place.row, 2 * place.pair, labels_ | Qt::AlignVCenter);
    grid_->addLayout(line, place.row, 2 * place.pair + 1, 1, 2 * place.pairs - 1);
}

} // namespace card
