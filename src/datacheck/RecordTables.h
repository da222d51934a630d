#pragma once

#include "store/Recordset.h"

#include <QString>
#include <QStringView>

#include <span>

namespace datacheck {

/// A table whose rows belong to a client by `idkod`.
struct RecordTable {
    QStringView name;
    /// What one row is, and what several are.
    QStringView one;
    QStringView many;
    /// Its rows name an employee by `idkod_p`.
    bool hasWorker = false;
};

std::span<const RecordTable> recordTables();

/// The clients themselves.
inline constexpr RecordTable clientTable{u"k_zaklad", u"Klient", u"klienti"};
/// The table of the clients' long texts, of which each client has one row.
inline constexpr QStringView textTable = u"k_memo";

/// What the current row of a table tells a reader: its values but for the client's key, the words
/// of long texts without their marks.
QString wordsOf(store::Recordset& row, const RecordTable& table);

} // namespace datacheck
