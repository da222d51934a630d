#pragma once

#include "datacheck/RecordTables.h"

#include <memory>
#include <vector>

namespace datacheck {

/// What can be done about a finding.
enum class Remedy : quint8 {
    None,
    /// Its rows get a client, or an employee, whom the user picks.
    GiveClient,
    GiveWorker,
    MakeKey,
    AddTexts,
    JoinTexts,
    OpenClient,
    OpenEmployee,
    RepairFile,
};

/// A row that a finding is about.
struct FoundRow {
    const RecordTable* table = nullptr;
    std::shared_ptr<store::Recordset> rows;
    store::RowMark mark;

    /// The recordset on that row. @throws store::EngineError 3167 when it has been deleted
    store::Recordset& current() const {
        rows->setBookmark(mark);
        return *rows;
    }
};

/// Something in the register that is not as it should be.
struct Finding {
    /// A Slovak sentence.
    QString what;
    /// Name and key of the client or employee; empty when it concerns none.
    QString who;
    Remedy remedy = Remedy::None;
    /// The key of the client or employee whom the remedy is for.
    QString key = {};
    std::vector<FoundRow> rows = {};
};

} // namespace datacheck
