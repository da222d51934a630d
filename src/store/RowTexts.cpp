#include "store/RowTexts.h"

#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Rowset.h"
#include "store/StoredValue.h"

#include <algorithm>
#include <array>
#include <limits>

namespace store {

namespace {

constexpr char16_t none = 0;
constexpr QChar between = u'\n';

char16_t foldLetter(QChar letter) {
    if (letter.category() == QChar::Mark_NonSpacing)
        return none;
    QString parts = letter.decomposition();
    while (!parts.isEmpty() && letter.decompositionTag() == QChar::Canonical) {
        letter = parts.front();
        parts = letter.decomposition();
    }
    return letter.toCaseFolded().unicode();
}

/// The letters of the languages that are written here.
const auto& foldedLetters() {
    static const auto table = [] {
        std::array<char16_t, 0x400> folded{};
        for (char16_t letter = 0; letter < folded.size(); ++letter)
            folded[letter] = foldLetter(letter);
        return folded;
    }();
    return table;
}

char16_t folded(QChar letter) {
    const auto& table = foldedLetters();
    return letter.unicode() < table.size() ? table[letter.unicode()] : foldLetter(letter);
}

bool beginsAWord(QStringView text, QStringView word) {
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        if (at == 0 || !text[at - 1].isLetterOrNumber())
            return true;
    }
    return false;
}

/// "7.2.1998" of "07.02.1998".
QString withoutZeros(const QString& date) {
    QString result;
    for (const QChar sign : date) {
        if (sign != u'0' || (!result.isEmpty() && result.back() != u'.'))
            result += sign;
    }
    return result;
}

} // namespace

QString foldedText(QStringView text) {
    QString result;
    result.reserve(text.size());
    for (const QChar letter : text) {
        if (const char16_t plain = folded(letter); plain != none)
            result += QChar(plain);
    }
    return result;
}

RowTexts::RowTexts(const Recordset& rows, const QStringList& columns) : rowset_(rows.rowset()) {
    for (const QString& column : columns) {
        columns_.push_back(rowset_->columnIndex(column));
        expressions_ << rowset_->plan().columns[static_cast<size_t>(columns_.back())].expression;
    }
}

void RowTexts::read(int rows) {
    if (complete_)
        return;
    rowset_->connection().beginRead();
    if (rowset_->plan().sources.size() == 1)
        readTable(rows);
    else
        readJoin();
    if (complete_)
        complete();
}

/// In the order of the file, which is the quickest, and in steps between which no statement is
/// open.
void RowTexts::readTable(int rows) {
    const SelectPlan& plan = rowset_->plan();
    const QString rowid = sqlName(plan.sources.front().alias) + QStringLiteral(".rowid");
    QStringList terms{rowid + QStringLiteral(" > ?1")};
    if (!plan.filter.isEmpty())
        terms << u'(' + plan.filter + u')';
    Query query(rowset_->connection().handle(),
                QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %4 LIMIT ?2")
                    .arg((QStringList(rowid) + expressions_).join(QStringLiteral(", ")), plan.from,
                         terms.join(QStringLiteral(" AND ")), rowid));
    query.bind(1, keys_.empty() ? std::numeric_limits<qint64>::min() : keys_.back());
    query.bind(2, qint64{rows});
    complete_ = take(query) < rows;
}

void RowTexts::readJoin() {
    Query query(rowset_->connection().handle(), selectKeys(rowset_->plan(), {}, expressions_));
    take(query);
    complete_ = true;
}

qint64 RowTexts::take(Query& query) {
    RowKey key(rowset_->plan().sources.size());
    qint64 taken = 0;
    for (; query.step(); ++taken) {
        readKey(query, key);
        keys_.insert(keys_.end(), key.begin(), key.end());
        const qsizetype begin = texts_.size();
        block_.clear();
        block_.append(query, static_cast<int>(key.size()));
        addText();
        rows_.push_back({0, begin, texts_.size()});
    }
    return taken;
}

void RowTexts::addText() {
    const RowView row = block_.row(0);
    for (int at = 0; const int column : columns_) {
        const auto type = rowset_->plan().columns[static_cast<size_t>(column)].type;
        const Value value = readValue(row, at++, type);
        const QString text = value.toText();
        texts_ += foldedText(text) + between;
        if (value.isDate())
            texts_ += withoutZeros(text) + between;
    }
}

/// Only now, as to know where one row stands is to know it of all.
void RowTexts::complete() {
    const size_t width = rowset_->plan().sources.size();
    for (size_t row = 0; row < rows_.size(); ++row) {
        const RowKeyView key(keys_.data() + row * width, width);
        rows_[row].position = rowset_->keys().indexOf(key).value_or(-1);
    }
    std::erase_if(rows_, [](const Row& row) { return row.position < 0; });
    std::ranges::sort(rows_, {}, &Row::position);
    keys_.clear();
}

std::vector<qint64> RowTexts::positionsOf(const QString& words) {
    read(std::numeric_limits<int>::max());
    const QString sought = foldedText(words).simplified();
    const auto parts = QStringView(sought).split(u' ', Qt::SkipEmptyParts);
    std::vector<qint64> positions;
    for (const Row& row : rows_) {
        const QStringView text = QStringView(texts_).sliced(row.begin, row.end - row.begin);
        if (std::ranges::all_of(parts, [&](QStringView word) { return beginsAWord(text, word); }))
            positions.push_back(row.position);
    }
    return positions;
}

} // namespace store
