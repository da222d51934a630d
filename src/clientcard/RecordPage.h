#pragma once

#include "clientcard/RecordTable.h"

#include <vector>

class QPushButton;
class QWidget;

namespace card {
class CalendarNote;
}

namespace forms {
class EntryField;
class RichText;
class RowList;
} // namespace forms

namespace clientcard {

class RecordKind;

/// The controls of a tab of records, made and named, to be put in their places.
struct RecordControls {
    const RecordRow& row;
    const std::vector<forms::EntryField*>& fields;
    card::CalendarNote& calendarNote;
    RecordKind& kind;
    forms::RowList& list;
    /// Null for records without a long text.
    forms::RichText* richText;
    std::vector<QPushButton*> buttons;
};

/// Makes the page of a tab and gives its controls the order of Tab.
QWidget* makeRecordPage(const RecordControls& controls, QWidget* parent);

} // namespace clientcard
