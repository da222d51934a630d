#pragma once

#include "report/Bookmark.h"
#include "report/Layout.h"
#include "report/PageList.h"
#include "report/Placed.h"
#include "report/Table.h"

#include <QString>
#include <QStringList>

#include <vector>

class QDate;

namespace report {

/// A report, or a document of several: A4 pages that painter, preview and PDF draw as they are.
struct Pages {
    QString title;
    /// Whom the pages are about, as a client's name; empty for nobody.
    QString subject{};
    PageList pages{};
    /// What the reader should know of them, told beside them and not printed.
    QString note{};
    /// The reports of a document; a report alone has none.
    std::vector<Bookmark> bookmarks{};
    /// The printed rows as a table to be saved; without heads where the report is no plain table.
    Table table{};

    /// Subject and title, which together tell these pages from others.
    QString name() const;
};

/// The rows that a report prints.
class RowSource {
  public:
    virtual ~RowSource() = default;
    /// Goes to the next row, at first to the first one; false when there is none.
    virtual bool next() = 0;
    /// The text of a column of the current row. @throws what the source throws for unknown columns
    virtual QString text(const QString& column) const = 0;
};

/// Rows that can be read again.
class RowTable : public RowSource {
  public:
    virtual qint64 count() const = 0;
    /// Goes to the row of that number, the first one being 0.
    virtual void goTo(qint64 row) = 0;
    bool next() override {
        if (++current_ >= count())
            return false;
        goTo(current_);
        return true;
    }

  private:
    qint64 current_ = -1;
};

/// Widths and heights of texts in twips; needs no printer.
class TextMeter {
  public:
    virtual ~TextMeter() = default;
    virtual double width(const QString& text, const TextStyle& style) const = 0;
    virtual double ascent(const TextStyle& style) const = 0;
    virtual double lineHeight(const TextStyle& style) const = 0;
};

/// Sets a layout's bands onto pages: the report header, the page header below it and on top of each
/// further page, the detail once a row, the report footer, and the page footer at the foot of each
/// page. A band that fits a page stays in one piece; a taller one breaks between its text lines.
/// @param today the date that "%d" stands for
/// @throws std::invalid_argument when a field stands outside the detail
Pages makePages(const Layout& layout, RowSource& rows, const TextMeter& meter, const QDate& today);

/// As makePages, but each page is made when it is looked at: what is on show stands at once, and a
/// long report takes little memory. The rows are read more than once.
/// @throws what reading the first rows throws
Pages pagesOnDemand(const Layout& layout, std::shared_ptr<RowTable> rows,
                    std::shared_ptr<const TextMeter> meter, const QDate& today);

/// The cells of the row that is saved of a plain table.
QStringList savedCells(const Layout& layout, const RowSource& row);

} // namespace report
