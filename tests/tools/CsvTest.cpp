#include "mkdb/Csv.h"

#include <gtest/gtest.h>

namespace {

using Rows = std::vector<QStringList>;

Rows parsed(const char* bytes) {
    const mkdb::CsvTable table = mkdb::parseCsv(bytes, QStringLiteral("x.csv"));
    Rows rows{table.columns};
    rows.insert(rows.end(), table.rows.begin(), table.rows.end());
    return rows;
}

QStringList cells(std::initializer_list<const char*> texts) {
    QStringList list;
    for (const char* text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

TEST(Csv, reads) {
    struct Case {
        const char* bytes;
        Rows rows;
    };
    const Case cases[] = {
        {"a,b\n1,2\n", {cells({"a", "b"}), cells({"1", "2"})}},
        {"a,b\r\n1,2", {cells({"a", "b"}), cells({"1", "2"})}},
        {"\xEF\xBB\xBF"
         "a\n1\n",
         {cells({"a"}), cells({"1"})}},
        {"a,b\n\n,\n\n", {cells({"a", "b"}), cells({"", ""})}},
        {"a,b\n\"x,y\",\"q\"\"q\"\n", {cells({"a", "b"}), cells({"x,y", "q\"q"})}},
        {"a,b\n\"1\n2\",\"\"\n", {cells({"a", "b"}), cells({"1\n2", ""})}},
        {"a\n čaj \n", {cells({"a"}), cells({" čaj "})}},
        {"a\n", {cells({"a"})}},
    };
    for (const Case& test : cases)
        EXPECT_EQ(parsed(test.bytes), test.rows) << test.bytes;
}

TEST(Csv, refusesAndSaysWhere) {
    struct Case {
        const char* bytes;
        const char* message;
    };
    const Case cases[] = {
        {"", "x.csv, riadok 1: súbor je prázdny"},
        {"a\n\xC4\n", "x.csv: súbor nie je v kódovaní UTF-8"},
        {"a,b\n1\n", "x.csv, riadok 2: 1 hodnôt namiesto 2"},
        {"a\n\"1\n2\"\n3,4\n", "x.csv, riadok 4: 2 hodnôt namiesto 1"},
        {"a\nb\"c\n", "x.csv, riadok 2: úvodzovka uprostred hodnoty bez úvodzoviek"},
        {"a\n\"b\"c\n", "x.csv, riadok 2: za uzatváracou úvodzovkou stojí ďalší text"},
        {"a\n\n\"b\nc\n", "x.csv, riadok 3: neuzavretá úvodzovka"},
        {"a\nb\rc\n", "x.csv, riadok 2: osamotený znak CR"},
        {"a,A\n", "x.csv, riadok 1: prázdny alebo opakovaný názov stĺpca"},
        {"a,\n", "x.csv, riadok 1: prázdny alebo opakovaný názov stĺpca"},
    };
    for (const Case& test : cases) {
        try {
            parsed(test.bytes);
            ADD_FAILURE() << "accepted: " << test.bytes;
        } catch (const mkdb::CsvError& error) {
            EXPECT_STREQ(error.what(), test.message);
        }
    }
}

TEST(Csv, findsColumnsByName) {
    const mkdb::CsvTable table = mkdb::parseCsv("Kod,Nazov\n", QStringLiteral("x.csv"));
    EXPECT_EQ(table.column(QStringLiteral("nazov")), 1);
    EXPECT_THROW(table.column(QStringLiteral("iny")), mkdb::CsvError);
    EXPECT_THROW(mkdb::readCsv(QStringLiteral("/nie/je.csv")), mkdb::CsvError);
}

} // namespace
