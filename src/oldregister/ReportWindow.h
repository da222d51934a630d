#pragma once

#include "oldregister/ConversionReport.h"

#include <QDialog>

namespace oldregister {

/// Shows what a conversion did: the rows of each table and every exception with its client. The
/// report can be saved and printed from it.
class ReportWindow : public QDialog {
    Q_OBJECT
  public:
    explicit ReportWindow(ConversionReport report, QWidget* parent = nullptr);

    /// Writes the report into that file, which is replaced as a whole or not at all.
    void saveAs(const QString& path);

  private:
    QWidget* countList();
    QWidget* findingList();
    QWidget* buttons();
    void askAndSave();
    void print();

    const ConversionReport report_;
};

} // namespace oldregister
