#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace report {

/// The rows of a report that is a plain table, as texts; each row has as many cells as there are
/// heads.
struct Table {
    QStringList heads;
    std::vector<QStringList> rows;
    /// Gives the rows of a table that keeps none, each when it is asked for by its number; false
    /// behind the last one.
    std::function<bool(qint64 row, QStringList& cells)> read = {};
};

} // namespace report
