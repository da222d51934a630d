#include "staff/EmployeeSave.h"

#include "staff/EmployeeOptions.h"
#include "staff/StaffData.h"
#include "validation/modKontrola.h"

#include <array>

namespace staff {

namespace {

constexpr std::array<card::Dependent, 3> dependents = {{
    {u"datVysetrenie", u"k_vysetrenie", u"idkod_p"},
    {u"datZaznam_spc", u"k_zaznam_spc", u"idkod_p"},
    {u"datZaznam_zmeny", u"k_zaznam_zmeny", u"idkod_P"},
}};

} // namespace

EmployeeSave::EmployeeSave(StaffData& data, card::KeyField& field, const EmployeeOptions& options)
    : data_(data), field_(field), options_(options), row_(data.datPsych, field) {}

SaveResult EmployeeSave::zapisZam() {
    if (const int missing = card::missing(field_); missing != 0)
        return SaveResult(missing);
    options_.volbyDoZaznamu(data_.datPsych.Recordset());
    if (modKontrola::gAkcia == 1) {
        row_.updateUnderFreeKey(card::keyBase(field_.typed()));
    } else if (modKontrola::gAkcia == 2) {
        saveExisting();
        modKontrola::gAkcia = 0;
    }
    return SaveResult::Saved;
}

void EmployeeSave::saveExisting() {
    const QString oldKey = row_.key();
    const QString base = card::keyBase(field_.typed());
    if (base != card::baseOfKey(oldKey)) {
        const auto [key, isWritten] = row_.updateUnderFreeKey(base);
        data_.datPsych.Refresh();
        if (isWritten)
            prepisIdkodP(oldKey, key);
    } else if (field_.typed() == row_.names()) {
        row_.updateUnder(oldKey);
    }
    // A name that changed behind the letters of the key is written when the row is left.
}

void EmployeeSave::leaveRow() {
    if (data_.datPsych.Recordset().EditMode() == store::EditState::Edit)
        row_.updateUnder(row_.key());
}

void EmployeeSave::prepisIdkodP(const QString& oldKey, const QString& newKey) {
    const auto sources = [this](QStringView name) -> store::DataSource& {
        return data_.source(name);
    };
    card::refreshDependents(dependents, sources);
    card::moveDependents(dependents, sources, oldKey, newKey);
    card::refreshDependents(dependents, sources);
}

} // namespace staff
