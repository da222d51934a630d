#include "card/KeyedRow.h"

#include "card/TextRules.h"
#include "store/EngineError.h"
#include "store/Sql.h"

#include <algorithm>
#include <vector>

namespace card {

int missing(KeyField& field, std::initializer_list<Mandatory> others) {
    const auto [surname, firstName] = field.typed();
    std::vector<Mandatory> all{{firstName, QStringLiteral("Meno je povinný údaj !")},
                               {surname, QStringLiteral("Priezvisko je povinný údaj !")}};
    all.insert(all.end(), others);
    const auto empty = std::ranges::find_if(
        all, [](const Mandatory& one) { return trimBlanks(one.text).isEmpty(); });
    if (empty == all.end())
        return 0;
    field.tellMissing(empty->message);
    return int(empty - all.begin()) + 1;
}

QString KeyedRow::text(QStringView column) const {
    return trimBlanks(source_.Recordset().Fields(column).Value().toText());
}

Written KeyedRow::updateUnder(const QString& key) {
    field_.setKey(key);
    try {
        source_.Recordset().Update();
    } catch (const store::EngineError& error) {
        if (store::isOfMedium(error.number()))
            throw;
        if (error.number() == store::ErrorNumber::DuplicateKey)
            return Written::KeyTaken;
        field_.passOver(error);
        return Written::Refused;
    }
    return Written::Yes;
}

KeyedRow::Result KeyedRow::updateUnderFreeKey(const QString& base) {
    const int width = source_.Recordset().Fields(u"idkod").column().width;
    for (int number = 0;; ++number) {
        QString key = base + keySequence(number);
        if (key.size() > width)
            throw store::EngineError(
                store::ErrorNumber::DuplicateKey,
                QStringLiteral("Pre toto meno a priezvisko už nie je voľný kľúč."), key);
        const Written written = updateUnder(key);
        if (written != Written::KeyTaken)
            return {std::move(key), written == Written::Yes};
    }
}

void refreshDependents(std::span<const Dependent> dependents, const Sources& sources) {
    for (const Dependent& dependent : dependents)
        sources(dependent.source).Refresh();
}

void moveDependents(std::span<const Dependent> dependents, const Sources& sources,
                    const QString& oldKey, const QString& newKey) {
    if (oldKey.isEmpty())
        return;
    for (const Dependent& dependent : dependents)
        sources(dependent.source)
            .Database()
            .Execute(QStringLiteral("update %1 set %2 = %3 where %2 = %4")
                         .arg(dependent.table, dependent.column, store::quoted(newKey),
                              store::quoted(oldKey)));
}

} // namespace card
