#pragma once

#include <array>
#include <span>

namespace clientcard {

/// What is done to a record's field when it is left or walked on from.
enum class RecordRule {
    None,
    Date,
    /// A date that no other record of the client may have.
    RecordDate,
    /// Only the first two characters stay.
    Hour,
    Worker,
    Facility,
    /// The first letter in upper case, when the field is left by a key.
    Address,
    SiblingName,
    /// An empty year becomes 0.
    Year,
    Sex,
    Dominant,
    Associated
};

/// An entry field of a record, and where it lies in the grid of its frame.
struct RecordField {
    /// Empty for a field that is not bound.
    const char16_t* column;
    const char16_t* label;
    const char16_t* toolTip;
    RecordRule rule;
    /// Greatest number of characters; 0 when the field sets no limit of its own.
    int maxLength;
    bool digitsOnly;
    /// Place, and characters that the field shows; none for a field that its kind lays out.
    int row;
    int pair;
    int characters;
};

/// A field that must not be empty, and what is said when it is.
struct MandatoryField {
    int field = -1;
    const char16_t* message = u"";
};

/// A value in the question before a record is deleted, and what stands before it. Without a source
/// it is a value of the record.
struct QuestionPart {
    const char16_t* before;
    const char16_t* source;
    const char16_t* column;
};

/// Where the focus goes when the fields of a record are opened.
enum class OpensOn { RichText, FirstField };
/// Where Up leads from the first field.
enum class UpFromFirst { RichText, Stays };
/// Which row is current after an edited record was written.
enum class AfterEdit { SamePlace, FirstRow };
/// Whether Oprava opens the record before or after it opens the fields.
enum class EditOpens { BeforeFields, AfterFields };
/// What Storno does beyond dropping the record.
enum class StornoRereads { No, Yes };
/// Whether a field that gets the focus forgets that it was checked.
enum class FocusClearsCheck { No, Yes };
/// What leaving a field towards the tab's pick does.
enum class TowardsPick {
    /// The field that the pick serves is not checked; others are, unless a key has checked them.
    SparesItsField,
    /// As above, but the others are checked again.
    ChecksOthersAgain,
    SparesAllFields
};

/// All that one tab of records has of its own. The machine itself is RecordTab.
struct RecordRow {
    int tab;
    const char16_t* source;
    const char16_t* table;

    const char16_t* list;
    const char16_t* listLabel;
    const char16_t* shownColumn;
    int listCharacters;

    const char16_t* frame;
    const char16_t* frameTitle;

    /// Prefix of the buttons' names, and that of the one that deletes.
    const char16_t* buttons;
    const char16_t* deleteButtons;
    const char16_t* saveCaption;
    const char16_t* saveNewCaption;

    const char16_t* fieldArray;
    std::span<const RecordField> fields;
    /// Empty for records without a long text.
    const char16_t* richText;
    const char16_t* richColumn;
    const char16_t* richLabel;

    std::array<MandatoryField, 2> mandatory;

    const char16_t* deleteTitle;
    const char16_t* deleteQuestion;
    std::span<const QuestionPart> questionParts;

    OpensOn opensOn;
    UpFromFirst upFromFirst;
    AfterEdit afterEdit;
    EditOpens editOpens;
    StornoRereads stornoRereads;
    FocusClearsCheck focusClearsCheck;
    /// The button that PageUp and PageDown ask for the focus.
    const char16_t* pageKeysTo;
    /// The button towards which nothing is checked.
    const char16_t* uncheckedTowards;
    /// The pick towards which the fields behave as `towardsPick` says, and the field it serves.
    const char16_t* pick;
    int pickedField;
    TowardsPick towardsPick;
};

/// The tab's row. @param tab one of the six tabs of records
const RecordRow& recordRow(int tab);

} // namespace clientcard
