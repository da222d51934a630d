#pragma once

#include "clientcard/EntryTable.h"

#include <QKeySequence>

#include <span>

namespace clientcard {

/// How a tab of the card is filled.
enum class TabKind { Basic, Parents, Siblings, Memo, Placements, Dated };

/// A tab of the card, by its number.
struct TabRow {
    const char16_t* caption;
    TabKind kind;
    /// Memo: the element of `rtbDUK` and the column of `k_memo`.
    int element = -1;
    const char16_t* column = u"";
};

std::span<const TabRow> tabTable();
/// The key that leads to a tab: Ctrl and its number, Alt from the tenth on.
QKeySequence tabKey(int tab);

/// The tab is filled by elements of `textKrz`.
bool isEntry(TabKind kind);

/// A code-list of the card as a data source: its name and the statement that fills it.
struct CodeListRow {
    const char16_t* dataSource;
    const char16_t* table;
    const char16_t* statement;
};

std::span<const CodeListRow> codeListTable();

/// A `dbcvolby` picker: the element of `textKrz` it serves, its rows, and how many characters of
/// the row the field takes.
struct PickerRow {
    krz::Element element;
    const char16_t* dataSource;
    const char16_t* table;
    const char16_t* shownColumn;
    int taken;
    /// Characters taken while the user moves through the list; 0: none, the focus goes to the
    /// field.
    int takenOnChange;
};

std::span<const PickerRow> pickerTable();

} // namespace clientcard
