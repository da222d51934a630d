#pragma once

#include <span>

namespace clientcard {

/// What is done to an entry field's text when the field is left or walked on from.
enum class Rule {
    None,
    Capital,
    CapitalBoth,
    NameLookup,
    CodeLookup,
    BirthNumber,
    Date,
    Sex,
    CatalogueNumber,
    ParentYear,
    ParentAge,
    Dominant,
    Associated
};

/// An element of `textKrz`: the entry fields of the tabs "Základné údaje" and "Rodičia".
struct EntryRow {
    /// Column of `k_zaklad`; empty for the impairment fields, which are not bound.
    const char16_t* column;
    const char16_t* caption;
    /// Greatest number of characters; 0 when the field sets no limit of its own.
    int maxLength;
    /// Place in the tab order; from 300 on the field is passed over by Tab.
    int tabIndex;
    bool digitsOnly;
    Rule rule;
    /// The `dbcvolby` picker that serves the field, -1 for none.
    int picker;
    const char16_t* toolTip;
};

/// The 57 elements by index.
std::span<const EntryRow> entryTable();

} // namespace clientcard
