#include "clientcard/RecordPage.h"

#include "card/CalendarNote.h"
#include "card/FieldGrid.h"
#include "clientcard/RecordKind.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FlowLayout.h"
#include "forms/Metrics.h"
#include "forms/RichText.h"
#include "forms/RowList.h"
#include "forms/ScrollPage.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace clientcard {

namespace {

QLabel* labelOf(QWidget& control, const char16_t* text) {
    auto* label = new QLabel(QString::fromUtf16(text));
    label->setBuddy(&control);
    return label;
}

QVBoxLayout* layOutList(const RecordControls& controls) {
    auto* column = new QVBoxLayout;
    column->setSpacing(forms::tightGap);
    column->addWidget(labelOf(controls.list, controls.row.listLabel));
    column->addWidget(&controls.list, 1);
    card::setWidth(controls.list, controls.row.listCharacters);
    return column;
}

/// Labels that carry blanks at their ends would be ragged on the right.
Qt::Alignment labelsOf(const RecordRow& row) {
    const bool isRagged = std::ranges::any_of(row.fields, [](const RecordField& field) {
        return QString::fromUtf16(field.field.caption).endsWith(u' ');
    });
    return isRagged ? Qt::AlignLeft : Qt::AlignRight;
}

void layOutFields(const RecordControls& controls, QBoxLayout& frame) {
    card::FieldGrid grid(frame, labelsOf(controls.row));
    for (std::size_t i = 0; i < controls.row.fields.size(); ++i) {
        const RecordField& field = controls.row.fields[i];
        if (field.characters == 0)
            continue;
        card::setWidth(*controls.fields[i], field.characters);
        // What stands alone in its row may reach over all columns.
        const bool isAlone =
            std::ranges::count(controls.row.fields, field.row, &RecordField::row) == 1;
        grid.add({field.row, field.pair, isAlone ? 4 : 1}, QString::fromUtf16(field.field.caption),
                 *controls.fields[i], controls.kind.pickOf(int(i)));
    }
    grid.grid().setColumnStretch(7, 1);
}

QGroupBox* makeFrame(const RecordControls& controls, QWidget* parent) {
    auto* frame = new QGroupBox(QString::fromUtf16(controls.row.frameTitle), parent);
    frame->setObjectName(QString::fromUtf16(controls.row.frame));
    auto* lines = new QVBoxLayout(frame);
    layOutFields(controls, *lines);
    lines->addWidget(&controls.calendarNote);
    controls.kind.layOutBelow(*lines);
    if (controls.richText != nullptr) {
        lines->addWidget(labelOf(*controls.richText, controls.row.richLabel));
        lines->addWidget(controls.richText, 1);
    }
    return frame;
}

/// What opens or deletes a record, and apart from it what ends its edit.
QLayout* layOutButtons(const RecordControls& controls) {
    constexpr std::size_t opening = 3;
    constexpr int apart = 3 * forms::gap;
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::Left);
    line->setSpacing(apart);
    QHBoxLayout* group = nullptr;
    for (std::size_t i = 0; i < controls.buttons.size(); ++i) {
        if (i % opening == 0) {
            group = new QHBoxLayout;
            group->setSpacing(forms::gap);
            line->addLayout(group);
        }
        group->addWidget(controls.buttons[i]);
    }
    return line;
}

/// The long text comes before the fields, as the walk by Up leads to it from the first of them.
void chain(const RecordControls& controls) {
    std::vector<QWidget*> order{&controls.list};
    if (controls.richText != nullptr)
        std::ranges::copy(controls.richText->tabStops(), std::back_inserter(order));
    for (std::size_t i = 0; i < controls.fields.size(); ++i) {
        order.push_back(controls.fields[i]);
        if (QWidget* pick = controls.kind.pickOf(int(i)))
            order.push_back(pick);
    }
    order.insert(order.end(), controls.buttons.begin(), controls.buttons.end());
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

} // namespace

QWidget* makeRecordPage(const RecordControls& controls, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* lines = new QVBoxLayout(page);
    lines->setContentsMargins(0, 0, 0, 0);
    controls.kind.layOutAbove(*lines);
    auto* columns = new QHBoxLayout;
    columns->addLayout(layOutList(controls));
    auto* record = new QVBoxLayout;
    const bool hasText = controls.richText != nullptr;
    auto* scrolled = new forms::ScrollPage(makeFrame(controls, page), page);
    if (!hasText)
        scrolled->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    record->addWidget(scrolled, 1);
    record->addLayout(layOutButtons(controls));
    if (!hasText)
        record->addStretch();
    columns->addLayout(record, 1);
    lines->addLayout(columns, 1);
    chain(controls);
    return page;
}

} // namespace clientcard
