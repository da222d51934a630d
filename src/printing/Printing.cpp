#include "printing/Printing.h"

#include "forms/MessageBox.h"
#include "report/Fonts.h"
#include "report/Print.h"
#include "store/ReportConnection.h"

#include <memory>
#include <utility>

namespace printing {

namespace {

void preview(const report::Pages& pages, QWidget* parent) {
    report::showPreview(pages, parent, [](QWidget* window, const QString& text) {
        forms::showMessage(window, {.text = text, .icon = QMessageBox::Warning});
    });
}

/// The engine's rows as the page maker reads them.
class StoredRows : public report::RowTable {
  public:
    explicit StoredRows(store::ReportRows rows) : rows_(std::move(rows)) {}
    qint64 count() const override { return rows_.count(); }
    void goTo(qint64 row) override { rows_.goTo(row); }
    QString text(const QString& column) const override { return rows_.text(column); }

  private:
    store::ReportRows rows_;
};

class BlankTable : public report::RowTable {
  public:
    explicit BlankTable(BlankRows rows) : rows_(std::move(rows)) {}
    qint64 count() const override { return qint64(rows_.size()); }
    void goTo(qint64 row) override { row_ = std::size_t(row); }
    QString text(const QString& column) const override {
        const auto found = rows_[row_].find(column);
        return found == rows_[row_].end() ? QString() : found->second;
    }

  private:
    BlankRows rows_;
    std::size_t row_ = 0;
};

} // namespace

report::Pages makeReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                         const QDate& today, const BlankRows& blank,
                         const store::TellProgress& tell) {
    store::ReportConnection connection(tools.engine, tools.folder.database());
    std::shared_ptr<report::RowTable> rows =
        std::make_shared<StoredRows>(connection.open(source, tell));
    if (rows->count() == 0)
        rows = std::make_shared<BlankTable>(blank);
    return report::pagesOnDemand(form, rows, std::make_shared<report::FontMeter>(), today);
}

void showPages(const PrintTools& tools, const report::Pages& pages, QWidget* parent) {
    if (tools.showPreview)
        tools.showPreview(pages, parent);
    else
        preview(pages, parent);
}

void showReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                const QDate& today, QWidget* parent, const BlankRows& blank) {
    showPages(tools, makeReport(tools, form, source, today, blank), parent);
}

} // namespace printing
