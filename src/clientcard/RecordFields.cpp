#include "clientcard/RecordFields.h"

#include "card/FieldKeys.h"
#include "card/TextRules.h"
#include "clientcard/CardData.h"
#include "clientcard/RecordKind.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "store/Sql.h"

#include <QDialog>

#include <algorithm>
#include <iterator>

namespace clientcard {

namespace {

std::vector<card::FieldRow> fieldRows(const RecordRow& row) {
    std::vector<card::FieldRow> rows;
    std::ranges::transform(row.fields, std::back_inserter(rows), &RecordField::field);
    for (const MandatoryField& mandatory : row.mandatory) {
        if (mandatory.field >= 0)
            rows[std::size_t(mandatory.field)].mandatory = true;
    }
    return rows;
}

} // namespace

RecordFields::RecordFields(CardFrame& frame, const RecordRow& row, QWidget* parent)
    : RuledFields(frame.window(), frame.guard(), row.fieldSet, fieldRows(row), parent),
      frame_(frame), row_(row), source_(frame.data().source(row.source)) {}

forms::DropDown* RecordFields::pickOf(int index) const {
    return kind_->pickOf(index);
}

void RecordFields::leftUnchecked(int index) {
    kind_->leftUnchecked(index);
}

card::Checked RecordFields::checkOwn(int index) {
    const auto isHeld = [&] {
        switch (row_.fields[std::size_t(index)].own) {
        case RecordCheck::DateIsFree:
            return dateIsTaken(text(index));
        case RecordCheck::NameIsFree:
            return nameIsTaken(text(index));
        case RecordCheck::OfKind:
            return kind_->holds(index);
        case RecordCheck::None:
            break;
        }
        return false;
    };
    return isHeld() ? card::Checked::Failed : card::Checked::Passed;
}

/// `kontrolaDatumu`. A text that is no calendar date is nobody's.
bool RecordFields::dateIsTaken(const QString& date) {
    if (date.isEmpty() ||
        !anotherHas(QStringLiteral("datum = datevalue(%1)").arg(store::quoted(date))))
        return false;
    card::refuse(frame_.window(),
                 QStringLiteral("Našiel sa záznam s rovnakým dátumom :") + card::trimBlanks(date));
    return true;
}

/// `kontrolaMena`.
bool RecordFields::nameIsTaken(const QString& name) {
    if (name.isEmpty() || !anotherHas(QStringLiteral("meno = ") + store::quoted(name)))
        return false;
    card::refuse(frame_.window(), QStringLiteral("Súrodenec s rovnakým menom :") +
                                      card::trimBlanks(name) + QStringLiteral(" už je zapísaný"));
    return true;
}

/// The first row found tells; for an edited record it may be the record itself. Marks tell rows
/// apart as their numbers would, without counting the rows before them.
bool RecordFields::anotherHas(const QString& criterion) const {
    const store::Recordset& rows = source_.Recordset();
    const auto clone = rows.Clone();
    clone->FindFirst(criterion);
    if (clone->NoMatch())
        return false;
    return rows.EditMode() == store::EditState::Add ||
           (rows.EditMode() == store::EditState::Edit && clone->Bookmark() != rows.Bookmark());
}

} // namespace clientcard
