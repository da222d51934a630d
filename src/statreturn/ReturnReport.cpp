#include "statreturn/ReturnReport.h"

#include "forms/MessageBox.h"
#include "report/Fonts.h"
#include "report/Print.h"
#include "report/Report.h"
#include "store/DataSource.h"
#include "store/ReportConnection.h"

#include <utility>

namespace statreturn {

namespace {

void preview(const report::Pages& pages, QWidget* parent) {
    report::showPreview(pages, parent, [](QWidget* window, const QString& text) {
        forms::showMessage(window, {.text = text, .icon = QMessageBox::Warning});
    });
}

class ScratchRows : public report::RowSource {
  public:
    explicit ScratchRows(store::ReportRows rows) : rows_(std::move(rows)) {}
    bool next() override { return rows_.next(); }
    QString text(const QString& column) const override { return rows_.text(column); }

  private:
    store::ReportRows rows_;
};

report::Pages pagesOf(const ReturnTools& tools, const report::Report& form,
                      const QString& scratchTable, const QDate& today) {
    store::ReportConnection connection(tools.engine, tools.folder.database());
    ScratchRows rows(connection.open(QStringLiteral("select * from ") + scratchTable));
    return form.make(rows, report::FontMeter(), today);
}

} // namespace

void showReturn(const ReturnTools& tools, const report::Report& form, const QString& scratchTable,
                const QDate& today, QWidget* parent) {
    const report::Pages pages = pagesOf(tools, form, scratchTable, today);
    if (tools.showPreview)
        tools.showPreview(pages, parent);
    else
        preview(pages, parent);
}

void emptyScratchTable(store::DataSource& datTlac, const QString& scratchTable) {
    datTlac.Database().Execute(QStringLiteral("delete * from ") + scratchTable);
    datTlac.Refresh();
}

} // namespace statreturn
