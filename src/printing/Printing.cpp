#include "printing/Printing.h"

#include "forms/MessageBox.h"
#include "report/Fonts.h"
#include "report/Print.h"
#include "store/ReportConnection.h"

#include <utility>

namespace printing {

namespace {

void preview(const report::Pages& pages, QWidget* parent) {
    report::showPreview(pages, parent, [](QWidget* window, const QString& text) {
        forms::showMessage(window, {.text = text, .icon = QMessageBox::Warning});
    });
}

/// The engine's rows as the page maker reads them.
class PrintedRows : public report::RowSource {
  public:
    explicit PrintedRows(store::ReportRows rows) : rows_(std::move(rows)) {}
    bool next() override { return rows_.next(); }
    QString text(const QString& column) const override { return rows_.text(column); }

  private:
    store::ReportRows rows_;
};

report::Pages pagesOf(const PrintTools& tools, const report::Layout& form, const QString& source,
                      const QDate& today) {
    store::ReportConnection connection(tools.engine, tools.folder.database());
    PrintedRows rows(connection.open(source));
    return report::makePages(form, rows, report::FontMeter(), today);
}

} // namespace

void showReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                const QDate& today, QWidget* parent) {
    const report::Pages pages = pagesOf(tools, form, source, today);
    if (tools.showPreview)
        tools.showPreview(pages, parent);
    else
        preview(pages, parent);
}

} // namespace printing
