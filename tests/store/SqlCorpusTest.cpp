#include "SqlDatabase.h"
#include "support/Lists.h"

using namespace store;
using namespace Qt::StringLiterals;

namespace {

void runSelect(test::SqlDatabase& database, const QString& sql) {
    const SelectPlan plan = database.plan(sql);
    database.raw(plan.rows);
    if (!plan.updatable)
        return;
    database.raw(selectKeys(plan));
    database.raw(selectRow(plan));
}

void runFind(test::SqlDatabase& database, const QString& source, const QString& criterion) {
    const SelectPlan plan = database.plan(source);
    ASSERT_TRUE(plan.updatable);
    database.raw(selectKeys(plan, {translateCriterion(criterion, plan)}));
}

void run(test::SqlDatabase& database, const QStringList& line) {
    if (line[0] == u"select"_s)
        return runSelect(database, line[1]);
    if (line[0] == u"action"_s)
        return database.execute(line[1]);
    if (line[0] == u"find"_s)
        return runFind(database, line[1], line[2]);
    ASSERT_EQ(line[0], u"query"_s);
    database.stored[line[1].toCaseFolded()] = line[2];
    runSelect(database, line[1]);
    runSelect(database, u"select * from "_s + line[1]);
}

/// Every statement of the program, its pieces put together, with plain keys and with keys that hold
/// an apostrophe. A line is kind, then its parts.
TEST(SqlCorpus, EveryStatementRuns) {
    test::SqlDatabase database;
    const QList<QStringList> lines = support::linesOf(u"corpus.sql"_s);
    ASSERT_GT(lines.size(), 150);
    for (const QStringList& line : lines) {
        SCOPED_TRACE(line.join(u'\t').toStdString());
        EXPECT_NO_THROW(run(database, line));
    }
}

} // namespace
