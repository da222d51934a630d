#include "mkdb/CodeLists.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

mkdb::CodeList list(const char* csv, const char16_t* table) {
    return mkdb::toCodeList(mkdb::parseCsv(csv, u"x.csv"_s), QString::fromUtf16(table));
}

TEST(CodeLists, takeColumnsByNameInAnyOrder) {
    const mkdb::CodeList read = list("nazov,KOD\nVšeobecná,25\n,27\n", u"c_zdrpoi");
    EXPECT_EQ(read.texts(u"kod"), (QStringList{u"25"_s, u"27"_s}));
    EXPECT_TRUE(read.rows[1][read.column(u"nazov")].isNull());
    EXPECT_EQ(list("fc_idkod,nazov\n3,x\n", u"c_funkcie").rows[0][0], store::Value(3));
    const char* codeInTwoKinds = "kod,nazov,akronym,v_nazov\n01,a,VYCH,a\n01,b,TVK,\n";
    EXPECT_EQ(list(codeInTwoKinds, u"c_zariad").rows.size(), 2U);
}

TEST(CodeLists, areRefused) {
    std::string tooMany = "kod,nazov,akronym,v_nazov\n";
    for (int kind = 1; kind <= 17; ++kind)
        tooMany += std::to_string(kind) + ",a,VYCH,a\n";
    const std::string tooLong = "kod,nazov\n1," + std::string(256, 'x') + "\n";
    const std::pair<const char*, const char16_t*> cases[] = {
        {"kod,nazov\n", u"c_jazyk"},
        {"kod\n1\n", u"c_jazyk"},
        {"kod,meno\n1,x\n", u"c_jazyk"},
        {"kod,nazov,iny\n1,x,y\n", u"c_jazyk"},
        {"kod,nazov\n1,x\n1,y\n", u"c_jazyk"},
        {"kod,nazov\n,x\n", u"c_jazyk"},
        {"fc_idkod,nazov\na,x\n", u"c_funkcie"},
        {tooMany.c_str(), u"c_zariad"},
        {tooLong.c_str(), u"c_jazyk"}};
    for (const auto& [csv, table] : cases)
        EXPECT_THROW(list(csv, table), mkdb::CsvError) << csv;
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
