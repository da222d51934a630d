#pragma once

#include "report/Pages.h"
#include "store/ProgramFolder.h"

#include <QString>

#include <functional>
#include <map>
#include <vector>

class QDate;
class QWidget;

namespace store {
class DBEngine;
}

namespace printing {

/// What print-outs work with. The engine must outlive whoever holds it.
struct PrintTools {
    store::DBEngine& engine;
    store::ProgramFolder folder;
    /// Shows the pages and returns when the user has closed them; the real preview if empty.
    std::function<void(const report::Pages&, QWidget*)> showPreview = {};
};

/// Rows that a form shows when its source has none, as texts by column; other columns are empty.
using BlankRows = std::vector<std::map<QString, QString>>;

/// Makes the pages of a form, its captions set, over the rows of a table, a stored query or a
/// select statement; each is made when it is looked at. What the user's action has written so far
/// is made durable first: the rows are read through a connection of their own.
/// @param today the date that a form's "%d" stands for
/// @throws store::EngineError 3025 when that connection can't read the register
report::Pages makeReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                         const QDate& today, const BlankRows& blank = {});

/// Shows finished pages and returns when the user has closed them.
/// @param parent the window over which the preview stands
void showPages(const PrintTools& tools, const report::Pages& pages, QWidget* parent);

/// Makes the pages of a form and shows them. @throws as makeReport
void showReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                const QDate& today, QWidget* parent, const BlankRows& blank = {});

} // namespace printing
