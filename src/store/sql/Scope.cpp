#include "store/sql/Scope.h"

namespace store::sql {

namespace {

std::vector<Found> findInSources(const Visible& visible, const QString& qualifier,
                                 const QString& name) {
    std::vector<Found> found;
    for (int i = visible.first; i < visible.last; ++i) {
        const Source& source = visible.scope.sources[static_cast<std::size_t>(i)];
        if (!qualifier.isEmpty() && !sameName(source.alias, qualifier))
            continue;
        for (std::size_t column = 0; column < source.columns.size(); ++column)
            if (sameName(source.columns[column].name, name))
                found.push_back({i, static_cast<int>(column)});
    }
    return found;
}

std::vector<Found> findInOutputs(const Scope& scope, const QString& qualifier,
                                 const QString& name) {
    const QString wanted = qualifier.isEmpty() ? name : qualifier + u'.' + name;
    for (std::size_t i = 0; i < scope.outputs.size(); ++i)
        if (sameName(scope.outputs[i].name, wanted))
            return {{-1, static_cast<int>(i)}};
    return {};
}

} // namespace

QString Source::columnSql(int column) const {
    return sqlName(alias) + u'.' + sqlName(columns[static_cast<std::size_t>(column)].name);
}

Source tableSource(const TableDef& table, const QString& alias) {
    Source source{alias, QString::fromUtf16(table.name), {}, {}};
    for (const ColumnDef& column : table.columns)
        source.columns.push_back(
            {QString::fromUtf16(column.name), column.type, column.width, kindOf(column.type)});
    return source;
}

ValueKind kindOf(ColumnType type) {
    switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
        return ValueKind::Text;
    case ColumnType::Date:
        return ValueKind::Date;
    case ColumnType::Boolean:
        return ValueKind::Boolean;
    case ColumnType::Whole:
    case ColumnType::Number:
        return ValueKind::Number;
    }
    return ValueKind::Null;
}

bool sameName(QStringView left, QStringView right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

std::vector<Found> findName(const Visible& visible, const QString& qualifier, const QString& name) {
    std::vector<Found> outputs;
    if (visible.outputs)
        outputs = findInOutputs(visible.scope, qualifier, name);
    std::vector<Found> columns = findInSources(visible, qualifier, name);
    if (visible.scope.outputsFirst)
        return outputs.empty() ? columns : outputs;
    return columns.empty() ? outputs : columns;
}

} // namespace store::sql
