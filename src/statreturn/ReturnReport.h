#pragma once

#include "report/Pages.h"
#include "store/ProgramFolder.h"

#include <QString>

#include <functional>

class QDate;
class QWidget;

namespace report {
class Report;
}
namespace store {
class DataSource;
class DBEngine;
} // namespace store

namespace statreturn {

/// What the tables of the return work with. The references must outlive whoever holds it.
struct ReturnTools {
    store::DBEngine& engine;
    /// Runs the selections; its screen has pointed it to the register.
    store::DataSource& datTlac;
    store::ProgramFolder folder;
    /// Shows the pages and returns when the user has closed them; the real preview if empty.
    std::function<void(const report::Pages&, QWidget*)> showPreview = {};
};

/// Shows a report of the return over the rows of a scratch table, read through a connection of its
/// own, which sees what has been made durable.
/// @throws store::EngineError 3025 when that connection can't read the register
void showReturn(const ReturnTools& tools, const report::Report& form, const QString& scratchTable,
                const QDate& today, QWidget* parent);

/// Empties a scratch table when its report is closed, and refreshes `datTlac`.
/// @throws store::EngineError
void emptyScratchTable(store::DataSource& datTlac, const QString& scratchTable);

} // namespace statreturn
