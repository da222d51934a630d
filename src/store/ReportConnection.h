#pragma once

#include "store/Progress.h"
#include "store/Query.h"
#include "store/Sql.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace store {

class Connection;
class DBEngine;

/// The rows of a report's query, all read when it was opened.
class ReportRows {
  public:
    ReportRows(std::vector<OutputColumn> columns, RowBlock rows);

    qint64 count() const { return rows_.count(); }
    /// Goes to the next row, at first to the first one; false when there is none.
    bool next();
    /// Goes to the row of that number, the first one being 0.
    void goTo(qint64 row) { current_ = row; }
    /// A column of the current row as text: Null is empty, a date is "dd.MM.yyyy". Names are found
    /// whatever their case. @throws EngineError 3265, 3021 without a current row
    QString text(QStringView column) const;

  private:
    std::vector<OutputColumn> columns_;
    RowBlock rows_;
    qint64 current_ = -1;
};

/// A reading of the file apart from the engine's connection, as a report needs it: what others
/// will see of the file is what is printed.
class ReportConnection {
  public:
    /// Makes pending work durable and opens the file anew, for reading.
    /// @throws EngineError 3025 when the file is missing, was replaced while the engine still works
    /// on the old one, or can't be read; what commitPending throws
    ReportConnection(DBEngine& engine, const QString& path);
    ~ReportConnection();
    ReportConnection(const ReportConnection&) = delete;
    ReportConnection& operator=(const ReportConnection&) = delete;

    /// @param source a table's name, a stored query's name or a select statement
    /// @param tell is told often, but never how far it is: unknownPart
    /// @throws EngineError 3025 when the file can't be read, and those of a bad statement; GivenUp
    ReportRows open(const QString& source, const TellProgress& tell = {});

  private:
    std::unique_ptr<Connection> connection_;
};

} // namespace store
