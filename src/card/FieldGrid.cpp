#include "card/FieldGrid.h"

#include "card/FocusHints.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

namespace card {

void setWidth(QWidget& field, int characters) {
    const QFontMetrics metrics(field.font());
    field.setFixedWidth(metrics.averageCharWidth() * characters + 16);
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
    frame.setContentsMargins(8, 6, 8, 6);
    frame.addLayout(grid_);
    grid_->setHorizontalSpacing(6);
    grid_->setVerticalSpacing(4);
}

void FieldGrid::add(const Place& place, const QString& label, QWidget& field, QWidget* pick) {
    auto* caption = new QLabel(label);
    caption->setBuddy(&field);
    auto* line = new QHBoxLayout;
    line->setSpacing(2);
    line->addWidget(&field);
    if (pick != nullptr) {
        line->addWidget(pick);
        markPick(field);
    }
    if (isMandatory(field))
        line->addWidget(makeStar());
    line->addStretch();
    grid_->addWidget(caption, place.row, 2 * place.pair, labels_ | Qt::AlignVCenter);
    grid_->addLayout(line, place.row, 2 * place.pair + 1, 1, 2 * place.pairs - 1);
}

} // namespace card
