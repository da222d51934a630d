#include "words/Rows.h"

#include "card/TextRules.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "store/StoredValue.h"

#include <QCryptographicHash>

#include <algorithm>

namespace words {

namespace {

/// Texts of this width can be looked for.
constexpr int longestText = 255;

const store::ColumnDef* columnIn(QStringView table, const forms::Word& word) {
    const store::TableDef* found = store::findTable(table);
    return found == nullptr || word.column.isEmpty() ? nullptr : found->column(word.column);
}

/// Somebody new is found by what would be stored of the words.
QString criterionOf(const Kept& kept, const QString& table) {
    QStringList terms;
    for (const forms::Word& word : kept.words) {
        const store::ColumnDef* column = columnIn(table, word);
        if (column != nullptr && column->type == store::ColumnType::Text &&
            column->width <= longestText && !word.text.isEmpty())
            terms << QStringLiteral("[%1] = %2").arg(word.column, store::quoted(word.text));
    }
    return terms.join(QStringLiteral(" and "));
}

/// The rows that may hold the words, or their row: empty for no such rows.
std::unique_ptr<store::Recordset> rowsOf(store::Database& data, const Kept& kept,
                                         const QString& table) {
    const QString condition = kept.owner.isEmpty() ? QString()
                              : kept.isNew()       ? criterionOf(kept, table)
                                             : QStringLiteral("idkod = ") + store::quoted(kept.key);
    if (condition.isEmpty() && kept.isNew())
        return nullptr;
    return data.OpenRecordset(
        condition.isEmpty() ? QStringLiteral("select * from ") + table
                            : QStringLiteral("select * from %1 where %2").arg(table, condition));
}

/// What is shown and what is stored may differ in blanks, and an empty number of a table is a 0.
QString bare(const QString& text, const forms::Word& word) {
    const QString trimmed = card::trimBlanks(text);
    return word.row >= 0 && trimmed == u"0" ? QString() : trimmed;
}

bool holds(store::Recordset& row, const forms::Word& word) {
    auto field = row.Fields(word.column);
    const store::Value stored = field.Value();
    if (field.column().type == store::ColumnType::Boolean)
        return stored.toBool() == (word.text == u"áno");
    const QString typed = bare(word.text, word);
    if (typed == bare(stored.toText(), word))
        return true;
    try {
        return !typed.isEmpty() &&
               store::toCell(typed, field.column()) == store::toCell(stored, field.column());
    } catch (const store::EngineError&) {
        // No value of the column.
        return false;
    }
}

/// Of the words those that a table would take, of a row in a certain place or of any.
forms::Words wordsFor(const Kept& kept, QStringView table) {
    forms::Words taken;
    std::ranges::copy_if(kept.words, std::back_inserter(taken),
                         [&](const forms::Word& word) { return columnIn(table, word) != nullptr; });
    return taken;
}

bool anyHolds(store::Recordset& rows, const forms::Words& words) {
    for (; !rows.Eof(); rows.MoveNext()) {
        if (std::ranges::all_of(words, [&](const forms::Word& word) { return holds(rows, word); }))
            return true;
    }
    return false;
}

/// Words that name the place of their row.
bool placesHold(store::Recordset& rows, const forms::Words& words) {
    const qint64 count = rows.RecordCount();
    return std::ranges::all_of(words, [&](const forms::Word& word) {
        if (word.row >= count)
            return false;
        rows.setAbsolutePosition(word.row);
        return holds(rows, word);
    });
}

bool isStored(store::Database& data, const Kept& kept) {
    std::size_t found = 0;
    for (const QString& table : kept.tables) {
        const forms::Words words = wordsFor(kept, table);
        const auto rows = words.empty() ? nullptr : rowsOf(data, kept, table);
        if (rows == nullptr)
            continue;
        if (!(words.front().row < 0 ? anyHolds(*rows, words) : placesHold(*rows, words)))
            return false;
        found += words.size();
    }
    return found > 0 && std::ranges::all_of(kept.words, [&](const forms::Word& word) {
               return word.column.isEmpty() ||
                      std::ranges::any_of(kept.tables, [&](const QString& table) {
                          return columnIn(table, word) != nullptr;
                      });
           });
}

QByteArray printWithout(const QStringList& columns, store::Recordset& row, QStringView table) {
    QCryptographicHash sum(QCryptographicHash::Sha256);
    for (const store::ColumnDef& column : store::findTable(table)->columns) {
        if (columns.contains(QString::fromUtf16(column.name), Qt::CaseInsensitive))
            continue;
        const QByteArray value = row.Fields(column.name).Value().toText().toUtf8();
        sum.addData(QByteArray::number(value.size()) + ':' + value);
    }
    return sum.result().toHex();
}

QByteArray restOf(store::Recordset& row, const Kept& kept) {
    QStringList columns{QStringLiteral("idkod")};
    for (const forms::Word& word : kept.words)
        columns << word.column;
    return printWithout(columns, row, kept.owner);
}

/// The words have been written, and the name among them has made another key.
bool isStoredUnderNewKey(store::Database& data, const Kept& kept) {
    Kept sought = kept;
    sought.key.clear();
    const auto rows = rowsOf(data, sought, kept.owner);
    const forms::Words words = wordsFor(kept, kept.owner);
    for (; rows != nullptr && !rows->Eof(); rows->MoveNext()) {
        if (restOf(*rows, kept) == kept.rest &&
            std::ranges::all_of(words, [&](const forms::Word& word) { return holds(*rows, word); }))
            return true;
    }
    return false;
}

bool ownerIsThere(store::Database& data, const Kept& kept) {
    return kept.owner.isEmpty() || kept.isNew() || !rowsOf(data, kept, kept.owner)->Eof();
}

/// A record is looked for among those of its client.
bool rowIsThere(store::Database& data, const Kept& kept) {
    if (kept.part == wholeScreen)
        return printOfRows(data, kept) == kept.basis;
    if (kept.basis.isEmpty())
        return true;
    const QString& table = kept.tables.front();
    const auto rows = rowsOf(data, kept, table);
    for (; !rows->Eof(); rows->MoveNext()) {
        if (printOf(*rows, table) == kept.basis)
            return true;
    }
    return false;
}

} // namespace

QByteArray printOf(store::Recordset& row, QStringView table) {
    return printWithout({}, row, table);
}

QByteArray printOfRows(store::Database& data, const Kept& kept) {
    if (kept.isNew())
        return {};
    QByteArray prints;
    for (const QString& table : kept.tables) {
        const auto rows = rowsOf(data, kept, table);
        for (; !rows->Eof(); rows->MoveNext())
            prints += printOf(*rows, table);
        prints += '|';
    }
    return QCryptographicHash::hash(prints, QCryptographicHash::Sha256).toHex();
}

QByteArray printOfRest(store::Database& data, const Kept& kept) {
    if (kept.owner.isEmpty() || kept.isNew() || kept.part != wholeScreen)
        return {};
    const auto row = rowsOf(data, kept, kept.owner);
    return row->Eof() ? QByteArray() : restOf(*row, kept);
}

Fit fitOf(store::Database& data, const Kept& kept) {
    if (isStored(data, kept))
        return Fit::Stored;
    if (!ownerIsThere(data, kept))
        return isStoredUnderNewKey(data, kept) ? Fit::Stored : Fit::Gone;
    return rowIsThere(data, kept) ? Fit::Fits : Fit::Changed;
}

} // namespace words
