#pragma once

#include "card/FieldTable.h"

#include <array>
#include <span>

namespace clientcard {

/// The check that a tab of records adds to a field.
enum class RecordCheck {
    None,
    /// No other record of the client may have the date.
    DateIsFree,
    /// No other sibling may have the name.
    NameIsFree,
    /// The check is told by the kind of the record.
    OfKind
};

/// An entry field of a record, and where it lies in the grid of its frame.
struct RecordField {
    card::FieldRow field;
    RecordCheck own = RecordCheck::None;
    /// Place, and characters that the field shows; none for a field that its kind lays out.
    int row = 0;
    int pair = 0;
    int characters = 0;
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

/// All that one tab of records has of its own. The machine itself is RecordTab.
struct RecordRow {
    int tab;
    const char16_t* source;
    const char16_t* table;

    const char16_t* list;
    const char16_t* listLabel;
    const char16_t* shownColumn;
    int listCharacters;
    /// The date that tells which record is the latest; empty for records without one.
    const char16_t* dateColumn;

    const char16_t* frame;
    const char16_t* frameTitle;

    /// Prefix of the buttons' names, and that of the one that deletes.
    const char16_t* buttons;
    const char16_t* deleteButtons;
    const char16_t* saveCaption;
    const char16_t* saveNewCaption;

    card::FieldSet fieldSet;
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
    /// The pick of a code-list and the field that it serves; empty and -1 without one.
    const char16_t* pick;
    int pickedField;
};

/// The fields of a sibling.
namespace sibling {
enum Field { name, year, sex, illnesses, dominant, associated };
}

/// The tab's row. @param tab one of the six tabs of records
const RecordRow& recordRow(int tab);

} // namespace clientcard
