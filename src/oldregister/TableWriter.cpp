#include "oldregister/TableWriter.h"

#include "oldregister/FittedValue.h"
#include "store/EngineError.h"
#include "store/Schema.h"

#include <QStringList>

#include <algorithm>

namespace oldregister {

namespace {

constexpr QStringView keyName = u"idkod";
/// The table that is read in the order of its rows, and the column that they were numbered by.
constexpr QStringView orderedTable = u"odbstar";
constexpr QStringView orderName = u"c_ria";
/// A table of the form has 28 rows; of a table that has many more, the order is not in question.
constexpr std::size_t mostHeldBack = 1000;

bool isNamed(QStringView name, QStringView wanted) {
    return name.compare(wanted, Qt::CaseInsensitive) == 0;
}

bool hasColumn(const OldTable& table, QStringView wanted) {
    return std::ranges::any_of(
        table.columns, [&](const OldColumn& column) { return isNamed(column.name, wanted); });
}

} // namespace

TableWriter::TableWriter(store::Database& database, const OldTable& table,
                         std::vector<Finding>& findings)
    : definition_(*store::findTable(table.name)),
      findings_(findings), count_{QString::fromUtf16(definition_.name), table.rows},
      columns_(table.columns) {
    mapColumns(table);
    tellMissing(table);
    std::vector<const char16_t*> names;
    for (const Target& target : targets_)
        names.push_back(target.column->name);
    if (!names.empty())
        insert_.emplace(database, definition_.name, names);
    values_.resize(names.size());
}

void TableWriter::mapColumns(const OldTable& table) {
    for (std::size_t index = 0; index < table.columns.size(); ++index) {
        const QString& name = table.columns[index].name;
        const store::ColumnDef* column = definition_.column(name);
        const bool isNew = std::ranges::none_of(
            targets_, [&](const Target& target) { return target.column == column; });
        if (column != nullptr && isNew)
            targets_.push_back({index, column});
        else
            tell({}, QStringLiteral("stĺpec %1 register nepozná, nepreniesol sa").arg(name));
        if (isNamed(name, keyName))
            keyColumn_ = static_cast<int>(index);
        if (isNamed(definition_.name, orderedTable) && isNamed(name, orderName))
            orderColumn_ = static_cast<int>(index);
    }
}

void TableWriter::tellMissing(const OldTable& table) {
    for (const store::ColumnDef& column : definition_.columns)
        if (!hasColumn(table, column.name))
            tell({}, QStringLiteral("stĺpec %1 v pôvodnom súbore nie je, ostal prázdny")
                         .arg(QString::fromUtf16(column.name)));
}

void TableWriter::tell(const std::vector<OldValue>& row, const QString& what,
                       const QString& content) {
    QString client;
    if (keyColumn_ >= 0 && static_cast<std::size_t>(keyColumn_) < row.size())
        client = shown(row[static_cast<std::size_t>(keyColumn_)]);
    findings_.push_back({client, count_.table, what, content});
}

QString TableWriter::wholeRow(const std::vector<OldValue>& row) const {
    QStringList fields;
    for (std::size_t index = 0; index < row.size(); ++index)
        if (const QString text = shown(row[index]); !text.isEmpty())
            fields += columns_[index].name + u'=' + text;
    return fields.join(QStringLiteral("; "));
}

void TableWriter::add(const std::vector<OldValue>& row) {
    ++count_.read;
    if (row.size() != columns_.size())
        return tell({}, QStringLiteral("riadok má iný počet hodnôt ako tabuľka, nepreniesol sa"));
    if (!isHeldBack())
        return write(row);
    heldBack_.push_back(row);
    if (heldBack_.size() > mostHeldBack)
        finish();
}

void TableWriter::finish() {
    const auto order = [this](const std::vector<OldValue>& row) {
        return store::Value(shown(row[static_cast<std::size_t>(orderColumn_)])).toNumber();
    };
    if (isHeldBack() && heldBack_.size() <= mostHeldBack &&
        !std::ranges::is_sorted(heldBack_, {}, order)) {
        std::ranges::stable_sort(heldBack_, {}, order);
        tell({}, QStringLiteral("poradie riadkov sa v súbore stratilo, obnovilo sa podľa stĺpca %1")
                     .arg(orderName));
    }
    orderColumn_ = -1;
    for (const auto& row : std::exchange(heldBack_, {}))
        write(row);
}

bool TableWriter::take(const Target& target, const std::vector<OldValue>& row) {
    FittedValue fitted = fit(row[target.source], *target.column);
    const bool fits = fitted.problem.isEmpty();
    const bool isKey = isNamed(target.column->name, keyName);
    if (!fits && !isKey)
        tell(row,
             QStringLiteral("stĺpec %1: %2")
                 .arg(QString::fromUtf16(target.column->name), fitted.problem),
             shown(row[target.source]));
    values_[static_cast<std::size_t>(&target - targets_.data())] = std::move(fitted.value);
    return fits || !isKey;
}

void TableWriter::write(const std::vector<OldValue>& row) {
    bool isWhole = insert_.has_value();
    for (const Target& target : targets_)
        isWhole = take(target, row) && isWhole;
    if (!isWhole)
        return tell(row, QStringLiteral("kľúč sa nehodí, riadok sa nezapísal"), wholeRow(row));
    try {
        insert_->add(values_);
        ++count_.written;
    } catch (const store::EngineError& error) {
        if (error.number() != store::ErrorNumber::DuplicateKey)
            throw;
        tell(row, QStringLiteral("kľúč sa opakuje, riadok sa nezapísal"), wholeRow(row));
    }
}

} // namespace oldregister
