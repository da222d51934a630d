#pragma once

#include "printing/Printing.h"

#include <QString>

class QDate;
class QWidget;

namespace store {
class Database;
class DataSource;
} // namespace store

namespace statreturn {

/// What the tables of the return work with. The references must outlive whoever holds it.
struct ReturnTools {
    printing::PrintTools print;
    /// Runs the selections; its screen has pointed it to the register.
    store::DataSource& datTlac;
    /// Walks the types of school; pointed there, too.
    store::DataSource& datCisVzd;
};

// The tables by clients and the whole return may take long, and may be given up while they are
// made: all stays as it was then.

/// The operation behind the menu entry `mniVek`: makes Table I and shows it.
/// @param schoolYear as the main window shows it, "RRRR/RRRR"
/// @param parent the window over which the preview and a message stand
/// @throws store::EngineError what fails before the report is shown; failures of the report itself
/// end the run in a message or silently and leave the scratch table filled
void printVek(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent);

/// The operation behind `mniVzd`: makes Table II and shows it.
/// @throws store::EngineError whatever fails; once the report was to be shown, the scratch table
/// keeps its rows then
void printVzd(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent);

/// The operation behind `mniZam`: makes Table III and shows it. @throws as printVzd
void printZam(const ReturnTools& tools, const QDate& today, QWidget* parent);

/// The operations behind `mniDopUkaz` and `mniOdbStar`: show what was typed into Tables IV and V.
/// @throws store::EngineError
void printDopUkaz(const printing::PrintTools& tools, const QDate& today, QWidget* parent);
void printOdbStar(const printing::PrintTools& tools, const QDate& today, QWidget* parent);

/// The operation behind `mniVykaz`: makes all five tables and shows them as one document, in the
/// order of the form. Rows that were left in the scratch tables go first, and those of this run go
/// however it ends.
/// @throws store::EngineError what the operation of a table throws before its report is shown, its
/// text naming the table; nothing is shown then. Where Table I tells of a needed restart, so does
/// this
void printReturn(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
                 QWidget* parent);

/// Empties the scratch tables of the return: their rows live as long as the run that made them, and
/// a run that was killed could not do it. Writes nothing when they are empty.
/// @throws store::EngineError
void emptyScratchTables(store::Database& database);

} // namespace statreturn
