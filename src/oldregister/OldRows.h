#pragma once

#include "oldregister/OldFile.h"

#include <functional>

namespace oldregister {

/// The rows of a table in the order in which they lie in the file, which is that of their
/// insertion. Rows that have been moved stand where they were at first; deleted ones are left out.
class OldRows {
  public:
    using TakeRow = std::function<void(std::vector<OldValue>)>;
    using TakeBroken = std::function<void(quint32 page, quint32 lostRows)>;

    /// @param table must outlive the rows
    OldRows(const OldTableReader& table, TakeRow takeRow, TakeBroken takeBroken);

    void readAll();

  private:
    struct Place {
        int start = 0;
        int size = 0;
        bool isDeleted = false;
        bool isMoved = false;
    };

    void readPage(quint32 page);
    bool readRow(quint32 page, int row);
    bool readMoved(quint32 pageAndRow);
    bool readAt(const Place& place);
    std::optional<Place> placeOf(int row) const;
    bool loadPage(quint32 page) const;

    OldValue valueOf(const MdbColumn& column, const MdbField& field, const Place& place) const;
    OldValue memoOf(QByteArrayView reference) const;

    const OldTableReader& table_;
    MdbHandle& file_;
    TakeRow takeRow_;
    TakeBroken takeBroken_;
    std::vector<MdbField> fields_;
};

} // namespace oldregister
