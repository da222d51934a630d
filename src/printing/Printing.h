#pragma once

#include "forms/LongWork.h"
#include "report/Pages.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QString>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

class QDate;
class QWidget;

namespace printing {

/// What print-outs work with. The engine must outlive whoever holds it.
struct PrintTools {
    store::DBEngine& engine;
    store::ProgramFolder folder;
    /// Shows the pages and returns when the user has closed them; the real preview if empty.
    std::function<void(const report::Pages&, QWidget*)> showPreview = {};
    /// How long pages are made before it is shown how far they are.
    std::chrono::milliseconds patience = forms::ProgressForm::usualPatience;
};

/// Rows that a form shows when its source has none, as texts by column; other columns are empty.
using BlankRows = std::vector<std::map<QString, QString>>;

/// Makes the pages of a form, its captions set, over the rows of a table, a stored query or a
/// select statement; each is made when it is looked at. What the user's action has written so far
/// is made durable first: the rows are read through a connection of their own.
/// @param today the date that a form's "%d" stands for
/// @throws store::EngineError 3025 when that connection can't read the register; store::GivenUp
report::Pages makeReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                         const QDate& today, const BlankRows& blank = {},
                         const store::TellProgress& tell = {});

/// Lets something be done now and then while the engine looks for rows.
class WhileReading {
  public:
    /// @throws store::EngineError as DBEngine::OpenDatabase
    WhileReading(const PrintTools& tools, std::function<void()> between)
        : database_(tools.engine.OpenDatabase(tools.folder.database())) {
        database_.whileReading(std::move(between));
    }
    ~WhileReading() { database_.whileReading({}); }
    Q_DISABLE_COPY_MOVE(WhileReading)

  private:
    store::Database database_;
};

/// Makes a print-out by a work that the user may give up; then all that it wrote is undone.
/// @param doing told to the user who waits
/// @param make is given where to tell how far it is, by calls that may throw store::GivenUp
/// @return what was made, nothing when it was given up
template <class Make>
auto madeAtLength(const PrintTools& tools, const QString& doing, QWidget* parent, const Make& make)
    -> std::optional<decltype(make(store::TellProgress()))> {
    const forms::LongWork work(doing, parent, tools.patience);
    try {
        const WhileReading reading(tools, [&work] { work.goOn(); });
        return make(work.progress());
    } catch (const store::GivenUp&) {
        tools.engine.rollBackPending();
        return std::nullopt;
    }
}

/// Shows finished pages and returns when the user has closed them.
/// @param parent the window over which the preview stands
void showPages(const PrintTools& tools, const report::Pages& pages, QWidget* parent);

/// Makes the pages of a form and shows them. @throws as makeReport
void showReport(const PrintTools& tools, const report::Layout& form, const QString& source,
                const QDate& today, QWidget* parent, const BlankRows& blank = {});

} // namespace printing
