#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace report {

/// The rows of a report that is a plain table, as texts; each row has as many cells as there are
/// heads.
struct Table {
    QStringList heads;
    std::vector<QStringList> rows;
};

} // namespace report
