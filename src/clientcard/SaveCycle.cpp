#include "clientcard/SaveCycle.h"

#include "card/TextRules.h"
#include "store/Sql.h"
#include "validation/modKontrola.h"

#include <array>

namespace clientcard {

namespace {

constexpr std::array<card::Dependent, 6> dependents = {{
    {u"datNavstevy", u"k_navstevy", u"idkod"},
    {u"datSurodenci", u"k_surodenci", u"idkod"},
    {u"datVysetrenie", u"k_vysetrenie", u"idkod"},
    {u"datZariad", u"k_zariad", u"idkod"},
    {u"datZaznam_spc", u"k_zaznam_spc", u"idkod"},
    {u"datZaznam_zmeny", u"k_zaznam_zmeny", u"idkod"},
}};

} // namespace

SaveResult SaveCycle::zapisZaklad() {
    const int missing = card::missing(
        fields_,
        {{fields_.catalogueNumber(), QStringLiteral("Katalógové číslo je povinný údaj !")}});
    if (missing != 0)
        return SaveResult(missing);
    fields_.zapisPostih();
    if (modKontrola::gAkcia == 2) {
        saveExisting();
        modKontrola::gAkcia = 0;
    } else if (modKontrola::gAkcia == 1) {
        // The mode stays: a client saved on the way goes on being a new one.
        saveNew();
    }
    return SaveResult::Saved;
}

void SaveCycle::saveExisting() {
    const QString oldKey = row_.key();
    const QString base = card::keyBase(fields_.typed());
    if (fields_.typed() == row_.names()) {
        row_.updateUnder(oldKey);
    } else if (base != card::baseOfKey(oldKey)) {
        const auto [key, isWritten] = row_.updateUnderFreeKey(base);
        if (isWritten)
            zmenIdKod(oldKey, key);
    }
    // A name that changed behind the letters of the key is written when the source is refreshed.
}

void SaveCycle::saveNew() {
    const auto [key, isWritten] = row_.updateUnderFreeKey(card::keyBase(fields_.typed()));
    // The key of a client who was refused may be another's.
    if (isWritten)
        modKontrola::gIdKod = key;
    CardData::reopenOn(data_.datZaklad(), QStringLiteral("select * from k_zaklad order by idkod"),
                       modKontrola::gIdKod);
    if (!isWritten)
        return;
    data_.datMemo().Recordset().Fields(u"idkod").setValue(key);
    zapisMemo();
}

void SaveCycle::zmenIdKod(const QString& oldKey, const QString& newKey) {
    const auto sources = [this](QStringView name) -> store::DataSource& {
        return data_.source(name);
    };
    card::refreshDependents(dependents, sources);
    store::DataSource& memo = data_.datMemo();
    // Without this row, of which the opening of the card has told, the others still must follow.
    if (memo.Recordset().EditMode() != store::EditState::None) {
        memo.Recordset().Fields(u"idkod").setValue(newKey);
        memo.Recordset().Update();
    }
    memo.Refresh();
    card::moveDependents(dependents, sources, oldKey, newKey);
}

void SaveCycle::zapisMemo() {
    data_.datMemo().Recordset().Update();
}

bool SaveCycle::kon_katCislo(const QString& number) const {
    if (modKontrola::gAkcia == 0)
        return false;
    store::Recordset& clients = data_.datZaklad().Recordset();
    const auto clone = clients.Clone();
    clone->FindFirst(QStringLiteral("trim(katcis) =%1").arg(store::quoted(number)));
    if (clone->NoMatch())
        return false;
    // A mark tells the rows apart as their numbers would, without counting the rows before them.
    return modKontrola::gAkcia == 1 || clone->Bookmark() != clients.Bookmark();
}

} // namespace clientcard
