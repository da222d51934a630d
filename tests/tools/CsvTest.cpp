#include "mkdb/Csv.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// Cells joined by "|", rows by "/".
QString parsed(const char* bytes) {
    const mkdb::CsvTable table = mkdb::parseCsv(bytes, u"x.csv"_s);
    QStringList rows{table.columns.join(u'|')};
    for (const QStringList& row : table.rows)
        rows << row.join(u'|');
    return rows.join(u'/');
}

TEST(Csv, reads) {
    const std::pair<const char*, const char*> cases[] = {
        {"a,b\n1,2\n", "a|b/1|2"},
        {"a,b\r\n1,2", "a|b/1|2"},
        {"\xEF\xBB\xBF#\n1\n", "#/1"},
        {"a,b\n\n,\n\n", "a|b/|"},
        {"a,b\n\"x,y\",\"q\"\"q\"\n", "a|b/x,y|q\"q"},
        {"a,b\n\"1\n2\",\"\"\n", "a|b/1\n2|"},
        {"a\n čaj \n", "a/ čaj "},
        {"a\n", "a"}};
    for (const auto& [bytes, rows] : cases)
        EXPECT_EQ(parsed(bytes), QString::fromUtf8(rows)) << bytes;
}

TEST(Csv, refusesAndSaysWhere) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "x.csv, riadok 1: súbor je prázdny"},
        {"a\n\xC4\n", "x.csv: súbor nie je v kódovaní UTF-8"},
        {"a,b\n1\n", "x.csv, riadok 2: 1 hodnôt namiesto 2"},
        {"a\n\"1\n2\"\n3,4\n", "x.csv, riadok 4: 2 hodnôt namiesto 1"},
        {"a\nb\"c\n", "x.csv, riadok 2: úvodzovka uprostred hodnoty bez úvodzoviek"},
        {"a\n\"b\"c\n", "x.csv, riadok 2: za uzatváracou úvodzovkou stojí ďalší text"},
        {"a\n\n\"b\nc\n", "x.csv, riadok 3: neuzavretá úvodzovka"},
        {"a\nb\rc\n", "x.csv, riadok 2: osamotený znak CR"},
        {"a,A\n", "x.csv, riadok 1: prázdny alebo opakovaný názov stĺpca"},
        {"a,\n", "x.csv, riadok 1: prázdny alebo opakovaný názov stĺpca"}};
    for (const auto& [bytes, message] : cases) {
        try {
            parsed(bytes);
            ADD_FAILURE() << "accepted: " << bytes;
        } catch (const mkdb::CsvError& error) {
            EXPECT_STREQ(error.what(), message);
        }
    }
}

TEST(Csv, refusesAFileThatIsNotThere) {
    EXPECT_THROW(mkdb::readCsv(u"/nie/je.csv"_s), mkdb::CsvError);
}

} // namespace
