#include "clientcard/SaveCycle.h"

#include "card/Key.h"
#include "clientcard/TextRules.h"
#include "store/Sql.h"
#include "validation/modKontrola.h"

#include <array>

namespace clientcard {

namespace {

struct Dependent {
    QStringView source;
    QStringView table;
};

constexpr std::array<Dependent, 6> dependents = {{
    {u"datNavstevy", u"k_navstevy"},
    {u"datSurodenci", u"k_surodenci"},
    {u"datVysetrenie", u"k_vysetrenie"},
    {u"datZariad", u"k_zariad"},
    {u"datZaznam_spc", u"k_zaznam_spc"},
    {u"datZaznam_zmeny", u"k_zaznam_zmeny"},
}};

QString storedText(store::DataSource& source, QStringView column) {
    return source.Recordset().Fields(column).Value().toText();
}

} // namespace

SaveResult SaveCycle::zapisZaklad() {
    if (const auto why = missing())
        return *why;
    fields_.zapisPostih();
    if (modKontrola::gAkcia == 2) {
        saveExisting();
        modKontrola::gAkcia = 0;
    } else if (modKontrola::gAkcia == 1) {
        // The mode stays: a client saved on the way goes on being a new one.
        const QString key = saveNew();
        data_.datMemo().Recordset().Fields(u"idkod").setValue(key);
        modKontrola::gIdKod = key;
        zapisMemo();
    }
    return SaveResult::Saved;
}

std::optional<SaveResult> SaveCycle::missing() const {
    struct Mandatory {
        QString text;
        QString message;
        SaveResult result;
    };
    const std::array<Mandatory, 3> mandatory = {{
        {fields_.firstName(), QStringLiteral("Meno je povinný údaj !"), SaveResult::NoFirstName},
        {fields_.surname(), QStringLiteral("Priezvisko je povinný údaj !"), SaveResult::NoSurname},
        {fields_.catalogueNumber(), QStringLiteral("Katalógové číslo je povinný údaj !"),
         SaveResult::NoCatalogueNumber},
    }};
    for (const Mandatory& field : mandatory) {
        if (trimBlanks(field.text).isEmpty()) {
            fields_.tellMissing(field.message);
            return field.result;
        }
    }
    return std::nullopt;
}

void SaveCycle::saveExisting() {
    const QString oldKey = trimBlanks(storedText(data_.datZaklad(), u"idkod"));
    const auto same = [this](const QString& typed, QStringView column) {
        return trimBlanks(typed) == trimBlanks(storedText(data_.datZaklad(), column));
    };
    const QString base = card::keyBase(fields_.surname(), fields_.firstName());
    if (same(fields_.surname(), u"priezv") && same(fields_.firstName(), u"meno"))
        updateRefusedKey(oldKey);
    else if (base != card::baseOfKey(oldKey))
        zmenIdKod(oldKey, updateUnderFreeKey(base));
    // A name that changed behind the letters of the key is written when the source is refreshed.
}

QString SaveCycle::saveNew() {
    const QString key = updateUnderFreeKey(card::keyBase(fields_.surname(), fields_.firstName()));
    data_.datZaklad().setRecordSource(QStringLiteral("select * from k_zaklad order by idkod"));
    data_.datZaklad().Refresh();
    data_.datZaklad().Recordset().FindFirst(keyCriterion(key));
    return key;
}

QString SaveCycle::updateUnderFreeKey(const QString& base) {
    for (int number = 0;; ++number) {
        QString key = base + card::keySequence(number);
        if (!updateRefusedKey(key))
            return key;
    }
}

bool SaveCycle::updateRefusedKey(const QString& key) {
    fields_.setKey(key);
    try {
        data_.datZaklad().Recordset().Update();
    } catch (const store::EngineError& error) {
        if (error.number() == store::ErrorNumber::DuplicateKey)
            return true;
        fields_.passOver(error);
    }
    return false;
}

void SaveCycle::zmenIdKod(const QString& oldKey, const QString& newKey) {
    for (const Dependent& dependent : dependents)
        data_.source(dependent.source).Refresh();
    store::DataSource& memo = data_.datMemo();
    // Without this row, of which the opening of the card has told, the others still must follow.
    if (memo.Recordset().EditMode() != store::EditState::None) {
        memo.Recordset().Fields(u"idkod").setValue(newKey);
        memo.Recordset().Update();
    }
    memo.Refresh();
    for (const Dependent& dependent : dependents)
        data_.source(dependent.source)
            .Database()
            .Execute(QStringLiteral("update %1 set idkod = %2 where idkod = %3")
                         .arg(dependent.table, store::quoted(newKey), store::quoted(oldKey)));
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
