#include "mkdb/Csv.h"

#include "support/Lists.h"

namespace {

using namespace Qt::StringLiterals;

/// Cells joined by "|", rows by "/"; or why it is refused.
QString parsed(const QByteArray& bytes) {
    try {
        const mkdb::CsvTable table = mkdb::parseCsv(bytes, u"x.csv"_s);
        QStringList rows{table.columns.join(u'|')};
        for (const QStringList& row : table.rows)
            rows << row.join(u'|');
        return rows.join(u'/');
    } catch (const mkdb::CsvError& error) {
        return QString::fromUtf8(error.what());
    }
}

/// A line is a file, and what is read from it or where it is refused.
TEST(Csv, isReadOrRefusedAsListed) {
    for (const QStringList& line : support::linesOf(u"csv.tsv"_s))
        EXPECT_EQ(parsed(line[0].toUtf8()), line[1]) << line[0].toStdString();
    EXPECT_EQ(parsed("\xEF\xBB\xBF#\n1\n"), u"#/1"_s);
    EXPECT_EQ(parsed("a\n\xC4\n"), u"x.csv: súbor nie je v kódovaní UTF-8"_s);
    EXPECT_THROW(mkdb::readCsv(u"/nie/je.csv"_s), mkdb::CsvError);
}

} // namespace
