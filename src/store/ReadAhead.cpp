#include "store/ReadAhead.h"

#include <algorithm>
#include <utility>

namespace store {

namespace {

constexpr size_t mostBytes = 64 * 1024 * 1024;

bool isComputed(const OutputColumn& column) {
    return column.source < 0;
}

} // namespace

ReadAhead::ReadAhead(const SelectPlan& plan, quint64 stamp)
    : plan_(plan), stamp_(stamp), isPlain_(std::ranges::none_of(plan.columns, isComputed)),
      repeats_(plan.columns.size()), written_(plan.sources.size()) {}

void ReadAhead::add(const Query& query, std::span<const qint64> key) {
    if (rows_.size() >= mostBytes)
        return;
    for (size_t column = 0; column < repeats_.size() && !last_.empty(); ++column) {
        const OutputColumn& output = plan_.columns[column];
        const auto source = static_cast<size_t>(output.source);
        repeats_[column] = !isComputed(output) && key[source] == last_[source];
    }
    last_.assign(key.begin(), key.end());
    rows_.append(query, static_cast<int>(key.size()), repeats_);
}

std::optional<RowView> ReadAhead::read(qint64 index, std::span<const qint64> key, quint64 stamp,
                                       RowBlock& changed) const {
    if (stamp != stamp_ || index >= rows_.count())
        return std::nullopt;
    bool isChanged = false;
    for (size_t source = 0; source < key.size(); ++source) {
        const auto written = written_[source].find(key[source]);
        if (written == written_[source].end())
            continue;
        if (!isPlain_)
            return std::nullopt;
        if (!std::exchange(isChanged, true))
            changed.assign(rows_, index);
        for (const auto& [column, cell] : written->second)
            changed.set(0, column, cell);
    }
    return isChanged ? changed.row(0) : rows_.row(index);
}

void ReadAhead::noteWrite(int source, qint64 rowid, const Changes& changes, quint64 before,
                          quint64 after) {
    if (before != stamp_)
        return;
    stamp_ = after;
    Changes& known = written_[static_cast<size_t>(source)][rowid];
    for (auto& change : outputsOf(changes)) {
        std::erase_if(known, [&](const auto& old) { return old.first == change.first; });
        known.push_back(std::move(change));
    }
}

/// All output columns that show a changed column.
Changes ReadAhead::outputsOf(const Changes& changes) const {
    Changes outputs;
    for (const auto& [changed, cell] : changes) {
        const OutputColumn& from = plan_.columns[static_cast<size_t>(changed)];
        for (int column = 0; const OutputColumn& output : plan_.columns) {
            if (output.source == from.source && output.baseColumn == from.baseColumn)
                outputs.emplace_back(column, cell);
            ++column;
        }
    }
    return outputs;
}

} // namespace store
