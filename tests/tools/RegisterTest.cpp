#include "mkdb/Register.h"

#include "mkdb/BirthNumber.h"
#include "mkdb/Calendar.h"
#include "mkdb/KeyMaker.h"
#include "mkdb/Random.h"
#include "mkdb/TextMaker.h"
#include "store/Schema.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace {

using mkdb::RowShape;
using store::Value;
using namespace Qt::StringLiterals;

/// A row by column name, in lower case.
struct Row : QHash<QString, Value> {
    QString text(const char* column) const { return value(QString::fromUtf8(column)).toText(); }
    int number(const char* column) const { return text(column).toInt(); }
    QDate date(const char* column) const { return value(QString::fromUtf8(column)).toDate(); }
};

/// Keeps the rows, and refuses what the file would refuse.
class Rows : public mkdb::RowSink {
  public:
    void add(const RowShape& shape, const std::vector<Value>& values) override {
        const QString table = QString::fromUtf16(shape.table);
        Row row;
        for (std::size_t index = 0; index < values.size(); ++index) {
            const QString name = QString::fromUtf16(shape.columns[index]);
            check(table, name, values[index]);
            row[name.toLower()] = values[index];
        }
        tables[table].push_back(row);
    }

    std::map<QString, std::vector<Row>> tables;

  private:
    static void check(const QString& table, const QString& name, const Value& value) {
        SCOPED_TRACE(qPrintable(table + u'.' + name + u' ' + value.toText()));
        const store::ColumnDef* column = store::findTable(table)->column(name);
        ASSERT_NE(column, nullptr);
        const bool isText = column->type == store::ColumnType::Text;
        EXPECT_TRUE(!isText || value.toText().size() <= column->width);
        const bool isDate = column->type == store::ColumnType::Date;
        EXPECT_TRUE(!isDate || value.isNull() || value.isDate());
    }
};

const std::vector<mkdb::CodeList>& lists() {
    static const auto lists = mkdb::readCodeLists(QStringLiteral(TVK_DATA_FOLDER "/ciselniky"));
    return lists;
}

const mkdb::Vocabulary& words() {
    static const auto words = mkdb::readVocabulary(QStringLiteral(TVK_DATA_FOLDER "/ukazka"));
    return words;
}

Rows makeRows(const mkdb::RegisterPlan& plan) {
    Rows rows;
    mkdb::makeRegister(plan, words(), lists(), rows);
    return rows;
}

constexpr int clients = 300;
const QDate ageDay(2026, 11, 23);

const std::vector<Row>& table(const char* name) {
    static const Rows rows = makeRows({clients, 1, ageDay});
    return rows.tables.at(QString::fromUtf8(name));
}

QSet<QString> texts(const char* name, const char* column) {
    QSet<QString> texts;
    for (const Row& row : table(name))
        texts.insert(row.text(column));
    return texts;
}

QSet<QString> codes(const char16_t* list, const char16_t* column = u"kod") {
    const QStringList texts = mkdb::codeList(lists(), list).texts(column);
    return {texts.begin(), texts.end()};
}

TEST(Register, isTheSameForTheSameSeedAlone) {
    const mkdb::RegisterPlan plan{40, 5, ageDay};
    const Rows first = makeRows(plan);
    EXPECT_EQ(first.tables, makeRows(plan).tables);
    EXPECT_NE(first.tables, makeRows({40, 6, ageDay}).tables);
    EXPECT_NE(first.tables, makeRows({40, 5, ageDay.addYears(-3)}).tables);
    mkdb::Random onEveryMachine(1, 0);
    for (const int drawn : {2, 598, 53, 794, 558})
        EXPECT_EQ(onEveryMachine.below(1000), drawn);
}

TEST(Register, repeatsNothing) {
    const std::pair<const char*, std::vector<const char*>> uniques[] = {
        {"k_zaklad", {"katcis"}},
        {"k_zaklad", {"idkod"}},
        {"zamestnanci", {"idkod"}},
        {"k_surodenci", {"idkod", "meno"}},
        {"k_vysetrenie", {"idkod", "datum"}},
        {"k_zaznam_zmeny", {"idkod", "datum"}},
        {"k_zaznam_spc", {"idkod", "datum"}},
        {"k_navstevy", {"idkod", "datum"}},
    };
    for (const auto& [name, columns] : uniques) {
        QSet<QStringList> seen;
        for (const Row& row : table(name)) {
            QStringList entry;
            for (const char* column : columns)
                entry << row.text(column);
            EXPECT_FALSE(seen.contains(entry)) << name << ' ' << qPrintable(entry.join(u' '));
            seen << entry;
        }
        EXPECT_FALSE(seen.isEmpty()) << name;
    }
}

TEST(Register, givesBirthNumbersAndNamesThatAgreeWithDateAndSex) {
    QSet<QString> seen;
    for (const Row& row : table("k_zaklad")) {
        const QString number = row.text("rodcis");
        if (number.isEmpty())
            continue;
        SCOPED_TRACE(qPrintable(number));
        EXPECT_EQ(number.size(), 10);
        EXPECT_EQ(number.toLongLong() % 11, 0);
        EXPECT_FALSE(seen.contains(number));
        seen.insert(number);
        const int month = QStringView(number).mid(2, 2).toInt();
        const bool girl = month > 12;
        EXPECT_EQ(row.text("pohlav"), girl ? u"Z"_s : u"M"_s);
        const QDate born(2000 + QStringView(number).left(2).toInt(), girl ? month - 50 : month,
                         QStringView(number).mid(4, 2).toInt());
        EXPECT_EQ(row.date("datnar"), born);
        EXPECT_TRUE(
            row.text("idkod").startsWith(mkdb::keyBase(row.text("priezv"), row.text("meno"))));
        EXPECT_TRUE((girl ? words().girls : words().boys).contains(row.text("meno")));
        EXPECT_EQ(born.year() - row.number("matnar"), row.number("matvek"));
    }
    EXPECT_GT(seen.size(), clients * 9 / 10);
}

TEST(Register, holdsRowsWhoseCellsAgree) {
    const std::array<std::array<const char*, 3>, 4> homes{{{"ulica", "obec", "psc"},
                                                           {"matuli", "matobe", "matpsc"},
                                                           {"oteuli", "oteobe", "otepsc"},
                                                           {"kon_uli", "kon_obe", "kon_psc"}}};
    int boys = 0;
    for (const Row& row : table("k_zaklad")) {
        boys += row.text("pohlav") == u"M" ? 1 : 0;
        for (const auto& [street, town, zip] : homes) {
            const bool known =
                std::any_of(words().towns.begin(), words().towns.end(), [&](const auto& one) {
                    return one.name == row.text(town) && one.zip == row.text(zip);
                });
            EXPECT_TRUE(known || row.text(town).isEmpty()) << town;
            EXPECT_TRUE(row.text(town) == row.text("obec") || row.text(street) != row.text("ulica"))
                << street;
        }
        EXPECT_TRUE(row.text("narodn") != u"02" || row.text("jaz_doma") == u"hu");
        EXPECT_TRUE(row.text("kon_pomer") != u"matka" || row.text("kon_meno") == row.text("matka"));
    }
    EXPECT_GT(boys, clients / 2);
    for (const Row& row : table("k_zaznam_spc"))
        EXPECT_LT(row.number("hod_od"), row.number("hod_do"));
    for (const Row& row : table("zamestnanci"))
        EXPECT_EQ(row.text("pohlavie") == u"z", row.text("priezv").endsWith(u'á'));
    for (const Row& row : table("k_surodenci"))
        EXPECT_EQ(row.text("pohlavie") == u"Z", row.text("meno").endsWith(u'á'));
}

TEST(Register, givesABirthNumberOnceUntilADayIsUsedUp) {
    mkdb::BirthNumbers numbers;
    mkdb::Random random(1, 0);
    std::set<QString> given;
    const auto giveAll = [&] {
        for (int tried = 0; tried < 1001; ++tried)
            EXPECT_TRUE(given.insert(numbers.make({2010, 6, 7}, false, random)).second);
    };
    EXPECT_THROW(giveAll(), std::runtime_error);
    EXPECT_GT(given.size(), 900U);
}

TEST(Register, pointsOnlyToWhatIsThere) {
    struct Reference {
        const char* table;
        const char* column;
        QSet<QString> targets;
    };
    std::vector<Reference> references{
        {"k_zaklad", "zdrpoi", codes(u"c_zdrpoi")},
        {"k_zaklad", "narodn", codes(u"c_narodn")},
        {"k_zaklad", "stprisl", codes(u"c_iczeme")},
        {"k_zaklad", "jazyk", codes(u"c_jazyk")},
        {"k_zaklad", "jaz_doma", codes(u"c_jazyk")},
        {"zamestnanci", "prac_zar", codes(u"c_funkcie", u"fc_idkod")},
        {"k_zariad", "nazzar", codes(u"c_zariad")},
    };
    for (const char* column : {"mienar", "obec", "matobe", "oteobe", "kon_obe"})
        references.push_back({"k_zaklad", column, codes(u"c_iczuj", u"nazov")});
    for (const char* name : {"k_vysetrenie", "k_zaznam_zmeny", "k_zaznam_spc"})
        references.push_back({name, "idkod_p", texts("zamestnanci", "idkod")});
    for (const char* name : {"k_memo", "k_surodenci", "k_zariad", "k_vysetrenie", "k_zaznam_zmeny",
                             "k_zaznam_spc", "k_navstevy"})
        references.push_back({name, "idkod", texts("k_zaklad", "idkod")});
    for (const auto& [name, column, targets] : references) {
        const QStringList wrong = (texts(name, column) - targets - QSet{QString()}).values();
        EXPECT_TRUE(wrong.isEmpty()) << name << '.' << column << qPrintable(wrong.join(u' '));
    }
}

TEST(Register, spreadsRecordsEvenlyOverSixSchoolYearsAndThisOne) {
    EXPECT_EQ(mkdb::schoolYearStart({2026, 8, 31}), QDate(2025, 9, 1));
    QHash<QString, QDate> since;
    for (const Row& row : table("k_zaklad"))
        since[row.text("idkod")] = row.date("datevi");
    for (const char* name : {"k_vysetrenie", "k_zaznam_zmeny", "k_zaznam_spc", "k_navstevy"}) {
        std::map<QDate, int> years;
        for (const Row& row : table(name)) {
            const QDate day = row.date("datum");
            EXPECT_TRUE(day >= since[row.text("idkod")] && day <= ageDay) << name;
            ++years[mkdb::schoolYearStart(day)];
        }
        EXPECT_EQ(years.size(), 7U);
        EXPECT_LT(years.extract(mkdb::schoolYearStart(ageDay)).mapped(), years.begin()->second);
        const auto [fewest, most] =
            std::minmax_element(years.begin(), years.end(), [](const auto& one, const auto& other) {
                return one.second < other.second;
            });
        EXPECT_LT(most->second, 2 * fewest->second) << name;
    }
    for (const Row& row : table("k_navstevy"))
        EXPECT_GT(row.date("dat_budn"), row.date("datum"));
}

TEST(Register, fillsEveryRowOfTheReturnForBothSexes) {
    static const QRegularExpression differentDigits(u"^(?:([1-9])(?!.*\\1))* *$"_s);
    QSet<QString> cared;
    for (const Row& row : table("k_zaznam_spc")) {
        if (row.date("datum") >= QDate(2026, 9, 1))
            cared.insert(row.text("idkod"));
    }
    std::set<std::pair<int, QString>> filled;
    QSet<QString> dominant;
    for (const Row& row : table("k_zaklad")) {
        const QString impairments = row.text("postih");
        EXPECT_TRUE(differentDigits.match(impairments).hasMatch()) << qPrintable(impairments);
        dominant << impairments.trimmed().left(1);
        const QDate born = row.date("datnar");
        if (cared.contains(row.text("idkod")) && born.isValid() && impairments.trimmed() != u"")
            filled.insert({std::min(mkdb::ageAt(born, ageDay), 18), row.text("pohlav")});
    }
    EXPECT_EQ(filled.size(), 38U);
    EXPECT_EQ(dominant.size(), 10) << "the nine, and none";
}

TEST(Register, leavesOnePlacementOpenAndClosesTheOthers) {
    QHash<QString, QString> schools;
    for (const Row& row : table("k_zaklad"))
        schools[row.text("idkod")] = row.text("skola");
    QStringList open;
    for (const Row& row : table("k_zariad")) {
        const QDate to = row.date("vzar_do");
        EXPECT_TRUE(!to.isValid() || to >= row.date("vzar_od"));
        if (row.text("akronym") != u"VYCH" || to.isValid())
            continue;
        open << row.text("idkod");
        const QString school = schools[row.text("idkod")];
        EXPECT_TRUE(school.isEmpty() || school == row.text("adresa"));
    }
    EXPECT_EQ(open.size(), clients);
    EXPECT_EQ(open.removeDuplicates(), 0);
}

TEST(Register, sendsToSpecialSchoolsWhoNeedsThem) {
    const QSet<QString> special{u"02"_s, u"06"_s, u"07"_s, u"13"_s, u"14"_s, u"15"_s};
    QHash<QString, QString> dominant;
    for (const Row& row : table("k_zaklad"))
        dominant[row.text("idkod")] = row.text("postih").left(1);
    std::map<bool, std::array<int, 2>> placed;
    for (const Row& row : table("k_zariad")) {
        const QString& code = dominant[row.text("idkod")];
        const bool grave = code == u"1" || code == u"2";
        if (row.text("akronym") == u"VYCH")
            ++placed[grave][special.contains(row.text("nazzar")) ? 1 : 0];
        const bool ofSpecialSchool = row.text("nazzar") == u"07" || row.text("nazzar") == u"14";
        EXPECT_TRUE(!ofSpecialSchool || grave || QStringView(u"346").contains(code));
    }
    EXPECT_GT(placed[true][1], placed[true][0]);
    EXPECT_LT(4 * placed[false][1], placed[false][0]);
}

TEST(Register, hasNoMotherUnderSixteen) {
    QHash<QString, int> mothersYear;
    for (const Row& row : table("k_zaklad")) {
        EXPECT_GE(row.number("matvek"), 16);
        mothersYear[row.text("idkod")] = row.number("matnar");
    }
    for (const Row& row : table("k_surodenci"))
        EXPECT_GE(row.number("roknar") - mothersYear[row.text("idkod")], 16);
}

TEST(Register, hasAFewEmployeesWithoutRecords) {
    QSet<QString> idle = texts("zamestnanci", "idkod");
    for (const char* name : {"k_vysetrenie", "k_zaznam_zmeny", "k_zaznam_spc"})
        idle -= texts(name, "idkod_p");
    EXPECT_TRUE(idle.size() >= 2 && idle.size() <= 6) << idle.size();
}

TEST(Register, writesTextsWithoutHoles) {
    QHash<QString, QDate> born;
    for (const Row& row : table("k_zaklad"))
        born[row.text("idkod")] = row.date("datnar");
    for (const Row& row : table("k_memo"))
        EXPECT_TRUE(row.text("u_ziak").isEmpty() || !born[row.text("idkod")].isValid() ||
                    mkdb::ageAt(born[row.text("idkod")], ageDay) >= mkdb::schoolAge);
    for (const auto& [name, column] :
         {std::pair("k_memo", "poznamky"), {"k_vysetrenie", "popis"}}) {
        const QSet<QString> written = texts(name, column);
        EXPECT_GT(written.size(), 10) << name;
        for (const QString& one : written)
            EXPECT_FALSE(one.contains(u'{') || one.contains(u'|')) << one.toStdString();
    }
    EXPECT_FALSE(texts("k_zaznam_spc", "cinnost").contains(QString()));
    EXPECT_EQ(mkdb::fillTemplate(u"{meno} {bol|bola} {rád|rada}."_s, u"Eva"_s, true),
              u"Eva bola rada."_s);
}

TEST(Register, fillsTheTypedTablesWithSumsThatAgree) {
    const auto& care = table("odbstar");
    ASSERT_EQ(care.size(), 28U);
    const auto cell = [&](std::size_t row, int column) {
        return care[row].number(qPrintable(u"s_%1"_s.arg(column)));
    };
    for (int column = 1; column <= 10; ++column) {
        int all = 0;
        for (std::size_t row = 0; row < 27; ++row)
            all += cell(row, column);
        EXPECT_EQ(cell(27, column), all);
    }
    for (std::size_t row = 0; row < 28; ++row) {
        for (const int total : {1, 6})
            EXPECT_EQ(cell(row, total), cell(row, total + 1) + cell(row, total + 2) +
                                            cell(row, total + 3) + cell(row, total + 4));
    }
    const Row& indicators = table("dop_ukaz").at(0);
    EXPECT_EQ(indicators.number("r_0401") + indicators.number("r_0402") +
                  indicators.number("r_0403") + indicators.number("r_0404"),
              indicators.number("r_0416"));
}

} // namespace
