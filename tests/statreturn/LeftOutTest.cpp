#include "statreturn/LeftOut.h"

#include "statreturn/ReturnRegister.h"
#include "support/Lists.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

/// The people of the list. A client is birth, sex, impairment, care, the types of his open
/// placements, and what is said of him: of Table I, of Table II. An employee is function, kind,
/// sex, and what is said of him.
struct LeftOutTest : testing::Test, ReturnRegister {
    LeftOutTest() : ReturnRegister({u"prazdna"_s}) {
        for (const QStringList& line : support::linesOf(u"leftout.tsv"_s))
            line[0] == u"client" ? addClient(line) : addEmployee(line);
        reg.engine.commitPending();
    }
    void addClient(const QStringList& line) {
        const QString key = u"CLIENT%1"_s.arg(said[0].size());
        reg.add(u"k_zaklad"_s, {{u"idkod", key},
                                {u"priezv", key},
                                {u"datnar", support::valueOf(line[1])},
                                {u"pohlav", support::valueOf(line[2])},
                                {u"postih", support::valueOf(line[3])}});
        reg.add(u"k_zaznam_spc"_s, {{u"idkod", key}, {u"datum", support::valueOf(line[4])}});
        for (const QString& type : line[5].split(u',', Qt::SkipEmptyParts))
            reg.add(u"k_zariad"_s, {{u"idkod", key}, {u"akronym", u"VYCH"_s}, {u"nazzar", type}});
        said[0] << line[6];
        said[1] << line[7];
    }
    void addEmployee(const QStringList& line) {
        const QString key = u"EMPL%1"_s.arg(said[2].size());
        reg.add(u"zamestnanci"_s, {{u"idkod", key},
                                   {u"priezv", key},
                                   {u"prac_zar", support::valueOf(line[1])},
                                   {u"int-ext", support::valueOf(line[2])},
                                   {u"pohlavie", support::valueOf(line[3])}});
        said[2] << line[4];
    }

    QStringList said[3];
};

TEST_F(LeftOutTest, tellsOfEachTableWhyInWords) {
    const ReturnPeople people = readPeople(datTlac, u"2006/2007"_s, today);
    const LeftOut leftOut(people);
    const auto words = [&](std::size_t table, std::size_t who) {
        for (const Remark& remark : leftOut.remarks) {
            if (remark.table == ReturnTable(table) && remark.who == who)
                return wordsFor(people, remark);
        }
        return QString();
    };
    const std::size_t leftOutOf[] = {4, 4, 2};
    for (std::size_t table = 0; table < 3; ++table) {
        for (qsizetype who = 0; who < said[table].size(); ++who)
            EXPECT_EQ(words(table, std::size_t(who)), said[table][who]);
        EXPECT_EQ(leftOut.numbers.behind(0, table).size(), leftOutOf[table]);
    }
}

} // namespace
