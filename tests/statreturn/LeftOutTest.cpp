#include "statreturn/LeftOut.h"

#include "statreturn/ReturnRegister.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

/// A client of the empty register, and what is said of him: of Table I, of Table II.
struct ClientCase {
    store::Value birth;
    store::Value sex;
    store::Value impairment;
    store::Value care;
    QStringList openTypes;
    QString one;
    QString two;
};

const QDate born(2000, 5, 1);
const QDate inYear(2007, 3, 1);
const QString noCare = u"V školskom roku 2006/2007 nemá záznam o starostlivosti."_s;

const std::vector<ClientCase> clientCases{
    {born, u"M"_s, u"3"_s, inYear, {u"05"_s}, {}, {}},
    {{}, {}, {}, QDate(2007, 9, 1), {}, noCare, noCare},
    {{}, u"Z"_s, u"3"_s, inYear, {u"05"_s, u"05"_s}, u"Chýba dátum narodenia."_s, {}},
    {u"31.02.2000"_s,
     u"Z"_s,
     u" 3"_s,
     inYear,
     {},
     u"Dátum narodenia „31.02.2000“ nie je v kalendári. Postihnutie „ 3“ nezačína číslicou 1 až 9."_s,
     u"Postihnutie „ 3“ nezačína číslicou 1 až 9. Nemá otvorené umiestnenie vo výchove a "
     "vzdelávaní."_s},
    {QDate(2007, 9, 4),
     u"M"_s,
     {},
     inYear,
     {u"16"_s, u"51"_s},
     u"Dátum narodenia 04.09.2007 je v budúcnosti. Chýba postihnutie."_s,
     u"Chýba postihnutie. Umiestnenie 16 Bez ďalšieho vzdelávania: v jeho riadku je x, klienti sa "
     u"v "
     "ňom nepočítajú. Druh umiestnenia „51“ nie je v číselníku."_s},
    {born,
     u"z"_s,
     u"3"_s,
     inYear,
     {u"05"_s, u"12"_s, u"16"_s},
     u"Pohlavie je malé „z“: započítaný, nie však ako dievča."_s,
     u"Započítaný 2-krát, v riadkoch 0205 a 0212: má viac otvorených umiestnení (05 Bežná trieda "
     "ZŠ, 12 Stredná škola). Pohlavie je malé „z“: započítaný, nie však ako dievča."_s},
    {born,
     {},
     u"3"_s,
     inYear,
     {u"16"_s},
     u"Chýba pohlavie: započítaný, nie však ako dievča."_s,
     u"Umiestnenie 16 Bez ďalšieho vzdelávania: v jeho riadku je x, klienti sa v ňom nepočítajú."_s},
};

struct StaffCase {
    store::Value function;
    store::Value kind;
    store::Value sex;
    QString three;
};

const std::vector<StaffCase> staffCases{
    {1, u"i"_s, u"m"_s, {}},
    {{}, {}, u"z"_s, u"Chýba funkcia. Nie je určené, či je interný alebo externý."_s},
    {9, u"e"_s, u"z"_s, u"Funkcia 9 nie je 1 až 8."_s},
    {1, u"e"_s, u"Z"_s, u"Externý riaditeľ: v riadku 0301 je x, započítaný je len v súčte."_s},
    {8, u"e"_s, u"x"_s, u"Pohlavie je „x“: započítaný, nie však ako žena."_s},
};

struct LeftOutTest : testing::Test, ReturnRegister {
    LeftOutTest() : ReturnRegister({u"prazdna"_s}) {
        for (std::size_t i = 0; i < clientCases.size(); ++i) {
            const ClientCase& client = clientCases[i];
            const QString key = u"CLIENT%1"_s.arg(i);
            reg.add(u"k_zaklad"_s, {{u"idkod", key},
                                    {u"priezv", key},
                                    {u"datnar", client.birth},
                                    {u"pohlav", client.sex},
                                    {u"postih", client.impairment}});
            reg.add(u"k_zaznam_spc"_s, {{u"idkod", key}, {u"datum", client.care}});
            for (const QString& type : client.openTypes)
                reg.add(u"k_zariad"_s,
                        {{u"idkod", key}, {u"akronym", u"VYCH"_s}, {u"nazzar", type}});
        }
        for (std::size_t i = 0; i < staffCases.size(); ++i)
            reg.add(u"zamestnanci"_s, {{u"idkod", u"EMPL%1"_s.arg(i)},
                                       {u"priezv", u"EMPL%1"_s.arg(i)},
                                       {u"prac_zar", staffCases[i].function},
                                       {u"int-ext", staffCases[i].kind},
                                       {u"pohlavie", staffCases[i].sex}});
        reg.engine.commitPending();
    }
};

TEST_F(LeftOutTest, tellsOfEachTableWhyInWords) {
    const ReturnPeople people = readPeople(datTlac, u"2006/2007"_s, today);
    const LeftOut leftOut(people);
    const auto words = [&](ReturnTable table, std::size_t who) {
        for (const Remark& remark : leftOut.remarks) {
            if (remark.table == table && remark.who == who)
                return wordsFor(people, remark);
        }
        return QString();
    };
    for (std::size_t i = 0; i < clientCases.size(); ++i) {
        EXPECT_EQ(words(ReturnTable::One, i), clientCases[i].one);
        EXPECT_EQ(words(ReturnTable::Two, i), clientCases[i].two);
    }
    for (std::size_t i = 0; i < staffCases.size(); ++i)
        EXPECT_EQ(words(ReturnTable::Three, i), staffCases[i].three);
}

} // namespace
