#pragma once

#include "store/Query.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace store {

class Recordset;
class Rowset;

/// A text as it is compared while one types: letters' case and accents aside.
QString foldedText(QStringView text);

/// Columns of a recordset's rows as folded texts in memory, so that a list of any length can be
/// looked through at each letter. It holds the rows as they were when they were read.
class RowTexts {
  public:
    /// Reads nothing yet. The rows must have keys.
    /// @throws EngineError 3265 for a column that the rows have not
    RowTexts(const Recordset& rows, const QStringList& columns);

    /// Reads on, at most so many rows of a single table; a join is read at once.
    /// @throws EngineError
    void read(int rows);
    bool isComplete() const { return complete_; }

    /// The positions of the rows, ascending, in which every one of the blank-separated words begins
    /// a word; all of them for a text without words. A date is found with and without the zeros in
    /// front of its day and month. Reads what is still missing. @throws EngineError
    std::vector<qint64> positionsOf(const QString& words);

  private:
    struct Row {
        qint64 position;
        qsizetype begin;
        qsizetype end;
    };

    void readTable(int rows);
    void readJoin();
    qint64 take(Query& query);
    void addText();
    void complete();

    std::shared_ptr<Rowset> rowset_;
    std::vector<int> columns_;
    QStringList expressions_;
    QString texts_;
    std::vector<qint64> keys_;
    std::vector<Row> rows_;
    RowBlock block_;
    bool complete_ = false;
};

} // namespace store
