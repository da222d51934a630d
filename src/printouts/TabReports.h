#pragma once

#include "report/Layout.h"

#include <QString>
#include <QStringView>

#include <span>

namespace printouts {

/// Where the codes of a tab's records have their names. The statement of the tab leaves out records
/// whose code has none.
struct Names {
    const char16_t* records;
    const char16_t* code;
    const char16_t* list;
    const char16_t* listCode;
};

/// How a tab of the card is printed.
struct TabReport {
    /// What the print-out is called in file names and in the contents of documents.
    const char16_t* title;
    report::Layout (*form)();
    /// The stored query that gets the client's statement; empty where none is written.
    const char16_t* query;
    /// Makes the statement; null where the card brings it.
    QString (*statement)(const QString& key);
    /// Heading and column of a text; empty for other tabs.
    const char16_t* heading = u"";
    const char16_t* column = u"";
    /// Null where no record can be left out.
    const Names* names = nullptr;
};

/// The fourteen tabs in their order.
std::span<const TabReport> tabReports();

/// The form of a tab, the heading and the column of its text set.
report::Layout formOf(const TabReport& tab);

} // namespace printouts
