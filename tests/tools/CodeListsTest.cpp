#include "mkdb/CodeLists.h"

#include "support/Lists.h"

namespace {

using namespace Qt::StringLiterals;

mkdb::CodeList list(const QByteArray& csv, const QString& table) {
    return mkdb::toCodeList(mkdb::parseCsv(csv, u"x.csv"_s), table);
}

TEST(CodeLists, takeColumnsByNameInAnyOrder) {
    const mkdb::CodeList read = list("nazov,KOD\nVšeobecná,25\n,27\n", u"c_zdrpoi"_s);
    EXPECT_EQ(read.texts(u"kod"), (QStringList{u"25"_s, u"27"_s}));
    EXPECT_TRUE(read.rows[1][read.column(u"nazov")].isNull());
    EXPECT_EQ(list("fc_idkod,nazov\n3,x\n", u"c_funkcie"_s).rows[0][0], store::Value(3));
    const char* codeInTwoKinds = "kod,nazov,akronym,v_nazov\n01,a,VYCH,a\n01,b,TVK,\n";
    EXPECT_EQ(list(codeInTwoKinds, u"c_zariad"_s).rows.size(), 2U);
}

/// A line is a code-list and a file that is none for it.
TEST(CodeLists, areRefused) {
    for (const QStringList& line : support::linesOf(u"refused.tsv"_s))
        EXPECT_THROW(list(line[1].toUtf8(), line[0]), mkdb::CsvError) << line[1].toStdString();
}

TEST(CodeLists, ofTheRepositoryAreSound) {
    const auto lists = mkdb::readCodeLists(QStringLiteral(TVK_DATA_FOLDER "/ciselniky"));
    EXPECT_EQ(lists.size(), 7U);
    EXPECT_EQ(mkdb::codeList(lists, u"c_funkcie").rows.size(), 8U);
    EXPECT_EQ(mkdb::codeList(lists, u"c_zariad").texts(u"akronym").count(u"VYCH"_s), 16);
    const QStringList towns = mkdb::codeList(lists, u"c_iczuj").texts(u"nazov");
    EXPECT_GT(towns.size(), 2900);
    EXPECT_TRUE(towns.contains(u"Bratislava-Podunajské Biskupice"_s));
    const QStringList countries = mkdb::codeList(lists, u"c_iczeme").texts(u"nazov");
    EXPECT_TRUE(countries.contains(u"Kosovo"_s) &&
                countries.contains(u"bez štátnej príslušnosti"_s));
}

} // namespace
