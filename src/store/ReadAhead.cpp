#include "store/ReadAhead.h"

#include <algorithm>

namespace store {

namespace {

constexpr size_t mostBytes = 64 * 1024 * 1024;

bool isComputed(const OutputColumn& column) {
    return column.source < 0;
}

} // namespace

ReadAhead::ReadAhead(const SelectPlan& plan, quint64 stamp)
    : plan_(plan), stamp_(stamp), isPlain_(std::ranges::none_of(plan.columns, isComputed)),
      written_(plan.sources.size()) {}

void ReadAhead::add(const Query& query, int firstColumn) {
    if (rows_.size() < mostBytes)
        rows_.append(query, firstColumn);
}

bool ReadAhead::read(qint64 index, std::span<const qint64> key, quint64 stamp,
                     RowBlock& row) const {
    if (stamp != stamp_ || index >= rows_.count())
        return false;
    row.assign(rows_, index);
    for (size_t source = 0; source < key.size(); ++source) {
        const auto written = written_[source].find(key[source]);
        if (written == written_[source].end())
            continue;
        if (!isPlain_)
            return false;
        for (const auto& [column, cell] : written->second)
            row.set(0, column, cell);
    }
    return true;
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
