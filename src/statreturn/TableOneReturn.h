#pragma once

#include "report/Report.h"
#include "statreturn/Counts.h"
#include "statreturn/ReturnReport.h"

namespace statreturn {

/// The operation behind the menu entry `mniVek`: makes Table I and shows it. Its report stays
/// loaded from one run to the next.
class TableOneReturn {
  public:
    explicit TableOneReturn(ReturnTools tools);

    /// @param schoolYear as the main window shows it, "RRRR/RRRR"
    /// @param parent the window over which the preview and a message stand
    /// @throws store::EngineError what fails before the report is shown; failures of the report
    /// itself end the run in a message or silently and leave the scratch table filled
    void run(const QString& schoolYear, const QDate& today, QWidget* parent);

  private:
    Counts make(const QString& schoolYear, const QDate& today);
    void setCaptions(const QString& schoolYear, const Counts& totals);
    bool show(const QDate& today, QWidget* parent);

    ReturnTools tools_;
    report::Report rptVek_;
};

} // namespace statreturn
