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
class StoredRows : public report::RowSource {
  public:
    explicit StoredRows(store::ReportRows& rows) : rows_(rows) {}
    bool next() override { return rows_.next(); }
    QString text(const QString& column) const override { return rows_.text(column); }

  private:
    store::ReportRows& rows_;
};

class BlankSource : public report::RowSource {
  public:
    explicit BlankSource(const BlankRows& rows) : rows_(rows) {}
    bool next() override { return ++next_ <= rows_.size(); }
    QString text(const QString& column) const override {
        const auto& row = rows_[next_ - 1];
        const auto found = row.find(column);
        return found == row.end() ? QString() : found->second;
    }

  private:
    const BlankRows& rows_;
    std::size_t next_ = 0;
};

} // namespace

report::Pages makeReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                         const QDate& today, const BlankRows& blank) {
    store::ReportConnection connection(tools.engine, tools.folder.database());
    store::ReportRows rows = connection.open(source);
    StoredRows stored(rows);
    BlankSource none(blank);
    report::RowSource& printed = rows.count() > 0 ? static_cast<report::RowSource&>(stored) : none;
    return report::makePages(form, printed, report::FontMeter(), today);
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
