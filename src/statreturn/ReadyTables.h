#pragma once

#include "printing/Printing.h"
#include "report/Layout.h"
#include "store/Progress.h"

#include <QString>

class QDate;

namespace statreturn {

struct ReturnTools;

/// A table of the return that is ready to be printed: its form with its captions, and where its
/// rows are.
struct ReadyTable {
    report::Layout form;
    QString source;
    printing::BlankRows blank = {};
};

/// Compute a table into its scratch table, which keeps the rows until they are printed.
/// @param schoolYear as the main window shows it, "RRRR/RRRR"
/// @throws store::EngineError, store::GivenUp
ReadyTable makeVek(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
                   const store::TellProgress& tell);
ReadyTable makeVzd(const ReturnTools& tools, const QString& schoolYear,
                   const store::TellProgress& tell);
ReadyTable makeZam(const ReturnTools& tools);

/// The tables that are typed in. Their forms are whole before anything was typed.
ReadyTable dopUkaz();
ReadyTable odbStar();

} // namespace statreturn
