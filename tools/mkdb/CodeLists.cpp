#include "CodeLists.h"

#include <QDir>
#include <QSet>

#include <algorithm>

namespace mkdb {

namespace {

constexpr const char16_t* names[] = {u"c_zdrpoi", u"c_narodn", u"c_jazyk",  u"c_iczeme",
                                     u"c_iczuj",  u"c_zariad", u"c_funkcie"};
constexpr int mostPlacementKinds = 16;
constexpr QStringView placementKind = u"VYCH";

[[noreturn]] void fail(const CsvTable& csv, std::size_t row, const QString& message) {
    throw CsvError(QStringLiteral("%1, záznam %2: %3").arg(csv.source).arg(row + 1).arg(message));
}

QString filePath(const QString& folder, QStringView name) {
    return QDir(folder).filePath(name.toString() + QStringLiteral(".csv"));
}

store::Value numberCell(const CsvTable& csv, std::size_t row, const QString& text) {
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber)
        fail(csv, row, QStringLiteral("„%1“ nie je celé číslo").arg(text));
    return number;
}

store::Value cell(const CsvTable& csv, std::size_t row, const store::ColumnDef& column,
                  const QString& text) {
    if (text.isEmpty())
        return {};
    if (column.type == store::ColumnType::Whole)
        return numberCell(csv, row, text);
    if (text.size() > column.width)
        fail(csv, row, QStringLiteral("„%1“ je dlhšie ako %2 znakov").arg(text).arg(column.width));
    return text;
}

void requireRows(const CodeList& list, const CsvTable& csv) {
    if (list.rows.empty())
        throw CsvError(QStringLiteral("%1: číselník nemá nijaký záznam").arg(csv.source));
}

/// The code is the first column of every list; placements have codes of their own by kind.
QString identity(const CodeList& list, const std::vector<store::Value>& row) {
    const bool hasKind = list.table->column(u"akronym") != nullptr;
    return row[0].toText().trimmed() +
           (hasKind ? u'|' + row[list.column(u"akronym")].toText() : QString());
}

void requireCodes(const CodeList& list, const CsvTable& csv) {
    QSet<QString> seen;
    for (std::size_t row = 0; row < list.rows.size(); ++row) {
        if (list.rows[row][0].toText().trimmed().isEmpty())
            fail(csv, row, QStringLiteral("chýba kód"));
        const QString code = identity(list, list.rows[row]);
        if (seen.contains(code))
            fail(csv, row, QStringLiteral("kód %1 sa opakuje").arg(code));
        seen.insert(code);
    }
}

void requireRoom(const CodeList& list, const CsvTable& csv) {
    if (list.table->column(u"akronym") == nullptr)
        return;
    const QStringList kinds = list.texts(u"akronym");
    if (kinds.count(placementKind.toString()) > mostPlacementKinds)
        throw CsvError(QStringLiteral("%1: druhov VYCH môže byť najviac %2")
                           .arg(csv.source)
                           .arg(mostPlacementKinds));
}

} // namespace

std::span<const char16_t* const> codeListNames() {
    return names;
}

int CodeList::column(QStringView name) const {
    for (std::size_t index = 0; index < shape.columns.size(); ++index) {
        if (name.compare(QStringView(shape.columns[index]), Qt::CaseInsensitive) == 0)
            return static_cast<int>(index);
    }
    throw CsvError(QStringLiteral("chýba stĺpec %1").arg(name));
}

QStringList CodeList::texts(QStringView name) const {
    const int index = column(name);
    QStringList texts;
    for (const auto& row : rows)
        texts.append(row[index].toText());
    return texts;
}

void CodeList::write(RowSink& sink) const {
    for (const auto& row : rows)
        sink.add(shape, row);
}

CodeList toCodeList(const CsvTable& csv, const QString& tableName) {
    CodeList list{store::findTable(tableName), {}, {}};
    if (csv.columns.size() != static_cast<qsizetype>(list.table->columns.size()))
        throw CsvError(QStringLiteral("%1: nesprávny počet stĺpcov").arg(csv.source));
    list.shape.table = list.table->name;
    std::vector<int> sources;
    for (const store::ColumnDef& column : list.table->columns) {
        list.shape.columns.push_back(column.name);
        sources.push_back(csv.column(QString::fromUtf16(column.name)));
    }
    for (std::size_t row = 0; row < csv.rows.size(); ++row) {
        auto& values = list.rows.emplace_back();
        for (std::size_t index = 0; index < sources.size(); ++index)
            values.push_back(
                cell(csv, row, list.table->columns[index], csv.rows[row][sources[index]]));
    }
    requireRows(list, csv);
    requireCodes(list, csv);
    requireRoom(list, csv);
    return list;
}

std::vector<CodeList> readCodeLists(const QString& folder) {
    std::vector<CodeList> lists;
    for (const char16_t* name : names)
        lists.push_back(toCodeList(readCsv(filePath(folder, name)), QString::fromUtf16(name)));
    return lists;
}

std::vector<CodeList> readPresentCodeLists(const QString& folder) {
    std::vector<CodeList> lists;
    const QStringList files = QDir(folder).entryList({QStringLiteral("*.csv")}, QDir::Files);
    for (const QString& file : files) {
        const QString name = file.chopped(4);
        if (std::none_of(std::begin(names), std::end(names),
                         [&](const char16_t* known) { return name == QStringView(known); }))
            throw CsvError(QStringLiteral("%1: taký číselník register nemá").arg(file));
        lists.push_back(toCodeList(readCsv(QDir(folder).filePath(file)), name));
    }
    if (lists.empty())
        throw CsvError(QStringLiteral("%1: priečinok neobsahuje nijaký číselník").arg(folder));
    return lists;
}

const CodeList& codeList(const std::vector<CodeList>& lists, QStringView name) {
    for (const CodeList& list : lists) {
        if (name == QStringView(list.table->name))
            return list;
    }
    throw CsvError(QStringLiteral("chýba číselník %1").arg(name));
}

} // namespace mkdb
