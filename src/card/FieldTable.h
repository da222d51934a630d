#pragma once

#include <limits>
#include <span>

namespace card {

/// What becomes of a field's text when the field is left or walked on from, before it is checked.
enum class Tidy {
    None,
    /// The first letter in upper case.
    Capital,
    /// As Capital, but only when the field is left by a key.
    CapitalByKey,
    /// The first letter and the one behind the first blank in upper case.
    BothCapitals,
    /// Only the first two characters stay.
    TwoCharacters,
    /// An empty text becomes 0; a 0 is cleared when the field gets the focus.
    ZeroIfEmpty
};

/// The test of a field that all screens share. Tests of its own a screen adds by checkOwn().
enum class Check { None, Date, Sex };

/// An entry field of a screen.
struct FieldRow {
    /// Empty for a field that is not bound.
    const char16_t* column = u"";
    const char16_t* caption = u"";
    const char16_t* toolTip = u"";
    /// Greatest number of characters; 0 when the field sets no limit of its own.
    int maxLength = 0;
    bool digitsOnly = false;
    Tidy tidy = Tidy::None;
    Check check = Check::None;
    bool mandatory = false;
    /// Tab leads to the field.
    bool tabStop = true;
    /// The screen opens and closes the field apart from the others.
    bool opensApart = false;
};

enum class Way { Forth, Back };

/// Where the walk by keys leads from a field, when it is not to its neighbour.
struct Step {
    int from;
    Way way;
    int to;
    /// Where it leads while the other one is disabled.
    int otherwise;
};

/// A pick towards which fields are left unchecked: the user is about to choose their value.
struct SparingPick {
    const char16_t* name;
    /// Of an array, the last element that spares a field.
    int lastElement = std::numeric_limits<int>::max();
    /// The one field that is spared, -1 for all.
    int field = -1;
};

/// Whether a field that gets the focus, or is typed into, forgets that a key has checked it.
enum class FocusClearsCheck { No, Yes };

/// What a set of fields has of its own, beside its rows.
struct FieldSet {
    const char16_t* array;
    /// The button that PageUp and PageDown ask for the focus; a disabled one does not take it.
    const char16_t* pageKeysTo;
    /// The button towards which nothing is checked; empty for none.
    const char16_t* uncheckedTowards = u"";
    FocusClearsCheck focusClearsCheck = FocusClearsCheck::Yes;
    std::span<const Step> steps = {};
    std::span<const SparingPick> sparing = {};
};

} // namespace card
