#pragma once

#include "report/Layout.h"

#include <QString>
#include <QStringView>

#include <span>

namespace printouts {

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
    /// The table of the tab's records, if the statement may leave some of them out because their
    /// code has no name.
    const char16_t* records = u"";
};

/// The fourteen tabs in their order.
std::span<const TabReport> tabReports();

/// The form of a tab, the heading and the column of its text set.
report::Layout formOf(const TabReport& tab);

} // namespace printouts
