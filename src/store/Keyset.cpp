#include "store/Keyset.h"

#include "store/Connection.h"
#include "store/ReadAhead.h"
#include "store/Schema.h"

#include <algorithm>
#include <numeric>

namespace store {

namespace {

/// A screenful and some more.
constexpr qint64 firstLimit = 128;

QString rowidOf(const SourceTable& source) {
    return sqlName(source.alias) + QStringLiteral(".rowid");
}

qint64 highestRowid(Connection& connection, const SelectPlan& plan) {
    Query query(
        connection.handle(),
        QStringLiteral("SELECT max(rowid) FROM %1").arg(sqlName(plan.sources.front().table)));
    return query.step() && !query.isNull(0) ? query.integer(0) : 0;
}

} // namespace

void bindKey(Query& query, RowKeyView key) {
    for (int parameter = 1; const qint64 rowid : key) {
        if (rowid == noRow)
            query.bindNull(parameter);
        else
            query.bind(parameter, rowid);
        ++parameter;
    }
}

void readKey(const Query& query, RowKey& key) {
    for (int column = 0; qint64 & rowid : key) {
        rowid = query.isNull(column) ? noRow : query.integer(column);
        ++column;
    }
}

Keyset::Keyset(Connection& connection, const SelectPlan& plan, ReadAhead& ahead)
    : connection_(&connection), plan_(&plan), ahead_(&ahead), width_(plan.sources.size()),
      nextLimit_(firstLimit) {
    if (width_ == 1)
        bound_ = highestRowid(connection, plan);
    loadMore();
}

Keyset::Keyset(qint64 count) : keys_(static_cast<size_t>(count)), complete_(true), nextLimit_(0) {
    std::iota(keys_.begin(), keys_.end(), qint64{0});
}

bool Keyset::has(qint64 index) {
    while (!complete_ && index >= loaded())
        loadMore();
    return index >= 0 && index < loaded();
}

RowKeyView Keyset::at(qint64 index) const {
    return RowKeyView(keys_).subspan(static_cast<size_t>(index) * width_, width_);
}

qint64 Keyset::size() {
    has(std::numeric_limits<qint64>::max());
    return loaded();
}

void Keyset::append(RowKeyView key) {
    // Its first adding was undone.
    if (isAdded(key))
        return;
    added_.insert(added_.end(), key.begin(), key.end());
    if (!complete_)
        return;
    if (!positions_.empty())
        positions_.emplace(key[0], loaded());
    keys_.insert(keys_.end(), key.begin(), key.end());
}

void Keyset::remove(qint64 index) {
    const auto from = keys_.begin() + index * static_cast<qint64>(width_);
    std::erase(added_, *from);
    keys_.erase(from, from + static_cast<qint64>(width_));
    positions_.clear();
    ++version_;
}

void Keyset::loadMore() {
    connection_->beginRead();
    if (width_ > 1)
        loadJoin();
    else if (plan_->inRowidOrder)
        loadByRowid();
    else if (keys_.empty())
        loadFirst();
    else
        loadRest();
    if (complete_)
        keys_.insert(keys_.end(), added_.begin(), added_.end());
}

void Keyset::loadByRowid() {
    const QString rowid = rowidOf(plan_->sources.front());
    Query query(connection_->handle(), selectKeys(*plan_, {rowid + QStringLiteral(" > ?1"),
                                                           rowid + QStringLiteral(" <= ?2")}) +
                                           QStringLiteral(" LIMIT ?3"));
    query.bind(1, keys_.empty() ? std::numeric_limits<qint64>::min() : keys_.back());
    query.bind(2, bound_);
    query.bind(3, nextLimit_);
    const qint64 before = loaded();
    take(query, {});
    complete_ = loaded() - before < nextLimit_;
    nextLimit_ *= 8;
}

void Keyset::loadFirst() {
    Query query(connection_->handle(), selectKeys(*plan_) + QStringLiteral(" LIMIT ?1"));
    query.bind(1, nextLimit_);
    take(query, {});
    complete_ = loaded() < nextLimit_;
}

/// What came first stays first, even when rows were added or changed since.
void Keyset::loadRest() {
    Query query(connection_->handle(), selectKeys(*plan_));
    take(query, {keys_.begin(), keys_.end()});
    complete_ = true;
}

void Keyset::loadJoin() {
    Query query(connection_->handle(), selectKeys(*plan_, {}, expressionsOf(*plan_)));
    RowKey key(width_);
    while (query.step()) {
        readKey(query, key);
        keys_.insert(keys_.end(), key.begin(), key.end());
        ahead_->add(query, key);
        connection_->rowRead();
    }
    complete_ = true;
}

/// Rows of one table.
void Keyset::take(Query& query, const std::unordered_set<qint64>& known) {
    while (query.step()) {
        const qint64 rowid = query.integer(0);
        if (rowid <= bound_ && !known.contains(rowid) && !isAdded({&rowid, 1}))
            keys_.push_back(rowid);
    }
}

bool Keyset::isAdded(RowKeyView key) const {
    return std::ranges::find(added_, key[0]) != added_.end();
}

std::optional<qint64> Keyset::indexOf(RowKeyView key) {
    if (plan_ == nullptr)
        return has(key[0]) ? std::optional(key[0]) : std::nullopt;
    const bool sorted = width_ == 1 && plan_->inRowidOrder && !isAdded(key);
    return sorted ? searchSorted(key[0]) : search(key);
}

std::optional<qint64> Keyset::searchSorted(qint64 rowid) {
    while (!complete_ && (keys_.empty() || keys_.back() < rowid))
        loadMore();
    const auto end = keys_.end() - (complete_ ? static_cast<qint64>(added_.size()) : 0);
    const auto found = std::lower_bound(keys_.begin(), end, rowid);
    if (found == end || *found != rowid)
        return std::nullopt;
    return found - keys_.begin();
}

std::optional<qint64> Keyset::search(RowKeyView key) {
    if (positions_.empty())
        buildPositions();
    const auto [first, last] = positions_.equal_range(key[0]);
    for (auto candidate = first; candidate != last; ++candidate)
        if (std::ranges::equal(at(candidate->second), key))
            return candidate->second;
    return std::nullopt;
}

void Keyset::buildPositions() {
    const qint64 rows = size();
    positions_.reserve(static_cast<size_t>(rows));
    for (qint64 index = 0; index < rows; ++index)
        positions_.emplace(at(index)[0], index);
}

} // namespace store
