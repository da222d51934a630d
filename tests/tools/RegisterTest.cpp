#include "mkdb/Register.h"

#include "mkdb/Calendar.h"
#include "mkdb/KeyMaker.h"
#include "store/Schema.h"

#include <QHash>
#include <QSet>

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using mkdb::RowShape;
using store::Value;

/// A row by column name, in lower case.
using Row = QHash<QString, Value>;

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
        const store::ColumnDef* column = store::findTable(table)->column(name);
        ASSERT_NE(column, nullptr) << table.toStdString() << '.' << name.toStdString();
        const bool isText = column->type == store::ColumnType::Text;
        EXPECT_TRUE(!isText || value.toText().size() <= column->width)
            << name.toStdString() << ' ' << value.toText().toStdString();
        const bool isDate = column->type == store::ColumnType::Date;
        EXPECT_TRUE(!isDate || value.isNull() || value.isDate()) << name.toStdString();
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
const QDate today(2026, 11, 23);

class Register : public testing::Test {
  protected:
    static const std::vector<Row>& table(const char* name) {
        static const Rows rows = makeRows({clients, 1, today});
        return rows.tables.at(QString::fromUtf8(name));
    }
    static QSet<QString> texts(const char* name, const char* column) {
        QSet<QString> texts;
        for (const Row& row : table(name))
            texts.insert(row[QString::fromUtf8(column)].toText());
        return texts;
    }
    static QSet<QString> codes(const char16_t* list, const char16_t* column) {
        const QStringList texts = mkdb::codeList(lists(), list).texts(column);
        return {texts.begin(), texts.end()};
    }
};

const char* const dependentTables[] = {"k_memo",       "k_surodenci",    "k_zariad",
                                       "k_vysetrenie", "k_zaznam_zmeny", "k_zaznam_spc",
                                       "k_navstevy"};

QString text(const Row& row, const char* column) {
    return row[QString::fromUtf8(column)].toText();
}

QDate date(const Row& row, const char* column) {
    return row[QString::fromUtf8(column)].toDate();
}

TEST_F(Register, hasAsManyClientsAsAskedFor) {
    EXPECT_EQ(table("k_zaklad").size(), std::size_t{clients});
    EXPECT_EQ(table("k_memo").size(), std::size_t{clients});
    for (const int count : {0, 1, 20})
        EXPECT_EQ(makeRows({count, 1, today}).tables[QStringLiteral("k_zaklad")].size(),
                  std::size_t(count));
}

TEST_F(Register, isTheSameForTheSameSeedAlone) {
    const mkdb::RegisterPlan plan{40, 5, today};
    const Rows first = makeRows(plan);
    EXPECT_EQ(first.tables, makeRows(plan).tables);
    EXPECT_NE(first.tables, makeRows({40, 6, today}).tables);
    EXPECT_NE(first.tables, makeRows({40, 5, today.addYears(-3)}).tables);
}

TEST_F(Register, makesKeysByTheRuleWithoutGaps) {
    for (const char* name : {"k_zaklad", "zamestnanci"}) {
        QHash<QString, int> next;
        for (const Row& row : table(name)) {
            const QString base = mkdb::keyBase(text(row, "priezv"), text(row, "meno"));
            EXPECT_EQ(text(row, "idkod"),
                      QStringLiteral("%1%2").arg(base).arg(next[base]++, 2, 10, QLatin1Char('0')));
        }
        EXPECT_EQ(texts(name, "idkod").size(), qsizetype(table(name).size()));
    }
    EXPECT_GT(std::count_if(
                  table("k_zaklad").begin(), table("k_zaklad").end(),
                  [](const Row& row) { return text(row, "idkod").endsWith(QStringLiteral("01")); }),
              0)
        << "no two clients whose names begin alike";
}

TEST_F(Register, givesBirthNumbersThatAgreeWithDateAndSex) {
    QSet<QString> seen;
    for (const Row& row : table("k_zaklad")) {
        const QString number = text(row, "rodcis");
        if (number.isEmpty())
            continue;
        EXPECT_EQ(number.size(), 10);
        EXPECT_EQ(number.toLongLong() % 11, 0) << number.toStdString();
        EXPECT_FALSE(seen.contains(number));
        seen.insert(number);
        const int month = QStringView(number).mid(2, 2).toInt();
        const bool girl = month > 12;
        EXPECT_EQ(text(row, "pohlav"), girl ? QStringLiteral("Z") : QStringLiteral("M"));
        const QDate born(2000 + QStringView(number).left(2).toInt(), girl ? month - 50 : month,
                         QStringView(number).mid(4, 2).toInt());
        EXPECT_EQ(date(row, "datnar"), born) << number.toStdString();
    }
    EXPECT_GT(seen.size(), clients * 9 / 10);
}

TEST_F(Register, givesNamesThatAgreeWithSex) {
    QSet<QString> women;
    for (const mkdb::Surname& surname : words().surnames)
        women.insert(surname.woman);
    for (const Row& row : table("k_zaklad")) {
        const bool girl = text(row, "pohlav") == QStringLiteral("Z");
        EXPECT_TRUE((girl ? words().girls : words().boys).contains(text(row, "meno")));
        EXPECT_TRUE(!girl || women.contains(text(row, "priezv")));
    }
}

TEST_F(Register, numbersTheCatalogueOnce) {
    EXPECT_EQ(texts("k_zaklad", "katcis").size(), clients);
    EXPECT_FALSE(texts("k_zaklad", "katcis").contains(QString()));
}

TEST_F(Register, pointsOnlyToWhatIsThere) {
    struct Reference {
        const char* table;
        const char* column;
        QSet<QString> targets;
    };
    const auto codeOf = [](const char16_t* list) {
        return codes(list, u"kod");
    };
    std::vector<Reference> references{{"k_zaklad", "zdrpoi", codeOf(u"c_zdrpoi")},
                                      {"k_zaklad", "narodn", codeOf(u"c_narodn")},
                                      {"k_zaklad", "stprisl", codeOf(u"c_iczeme")},
                                      {"k_zaklad", "jazyk", codeOf(u"c_jazyk")},
                                      {"k_zaklad", "jaz_doma", codeOf(u"c_jazyk")},
                                      {"zamestnanci", "prac_zar", codes(u"c_funkcie", u"fc_idkod")},
                                      {"k_zariad", "nazzar", codeOf(u"c_zariad")}};
    for (const char* column : {"mienar", "obec", "matobe", "oteobe", "kon_obe"})
        references.push_back({"k_zaklad", column, codes(u"c_iczuj", u"nazov")});
    for (const char* name : {"k_vysetrenie", "k_zaznam_zmeny", "k_zaznam_spc"})
        references.push_back({name, "idkod_p", texts("zamestnanci", "idkod")});
    for (const char* name : dependentTables)
        references.push_back({name, "idkod", texts("k_zaklad", "idkod")});
    for (const Reference& reference : references) {
        const QSet<QString> wrong =
            texts(reference.table, reference.column) - reference.targets - QSet<QString>{QString()};
        EXPECT_TRUE(wrong.isEmpty()) << reference.table << '.' << reference.column << " = "
                                     << (wrong.isEmpty() ? "" : wrong.begin()->toStdString());
    }
}

TEST_F(Register, keepsDaysOfAClientApartAndInOrder) {
    QHash<QString, QDate> since;
    for (const Row& row : table("k_zaklad"))
        since[text(row, "idkod")] = date(row, "datevi");
    for (const char* name : {"k_vysetrenie", "k_zaznam_zmeny", "k_zaznam_spc", "k_navstevy"}) {
        QSet<std::pair<QString, QDate>> seen;
        for (const Row& row : table(name)) {
            const std::pair entry(text(row, "idkod"), date(row, "datum"));
            EXPECT_FALSE(seen.contains(entry)) << name;
            seen.insert(entry);
            EXPECT_TRUE(entry.second >= since[entry.first] && entry.second <= today) << name;
        }
        EXPECT_FALSE(seen.isEmpty());
    }
}

TEST_F(Register, fillsEveryRowOfTheReturnForBothSexes) {
    QSet<QString> cared;
    for (const Row& row : table("k_zaznam_spc")) {
        if (date(row, "datum") >= mkdb::schoolYearStart(today))
            cared.insert(text(row, "idkod"));
    }
    std::map<std::pair<int, QString>, int> counts;
    for (const Row& row : table("k_zaklad")) {
        if (cared.contains(text(row, "idkod")) && date(row, "datnar").isValid() &&
            text(row, "postih").trimmed().toInt() > 0)
            ++counts[{std::min(mkdb::ageAt(date(row, "datnar"), today), 18), text(row, "pohlav")}];
    }
    EXPECT_EQ(counts.size(), 38U);
}

TEST_F(Register, coversSeveralSchoolYears) {
    std::set<QDate> years;
    for (const Row& row : table("k_zaznam_spc"))
        years.insert(mkdb::schoolYearStart(date(row, "datum")));
    EXPECT_GE(years.size(), 5U);
}

TEST_F(Register, agesParentsAsTheCardDoes) {
    for (const Row& row : table("k_zaklad")) {
        const QDate born = date(row, "datnar");
        for (const auto& [year, age] : {std::pair("matnar", "matvek"), {"otenar", "otevek"}}) {
            const int bornYear = text(row, year).toInt();
            EXPECT_TRUE(!born.isValid() || bornYear == 0 ||
                        born.year() - bornYear == text(row, age).toInt());
        }
    }
}

TEST_F(Register, leavesOnePlacementOpenAndClosesTheOthers) {
    QHash<QString, int> open;
    int closed = 0;
    QSet<QString> kinds;
    for (const Row& row : table("k_zariad")) {
        const QString kind = text(row, "akronym");
        const QDate to = date(row, "vzar_do");
        kinds.insert(kind);
        closed += to.isValid() ? 1 : 0;
        EXPECT_TRUE(!to.isValid() || to >= date(row, "vzar_od"));
        if (kind == QStringLiteral("VYCH") && !to.isValid())
            ++open[text(row, "idkod")];
    }
    EXPECT_EQ(open.size(), clients);
    EXPECT_EQ(std::count(open.begin(), open.end(), 1), clients);
    EXPECT_GT(closed, 0);
    EXPECT_EQ(kinds, (QSet<QString>{QStringLiteral("VYCH"), QStringLiteral("TVK")}));
}

TEST_F(Register, givesSiblingsDifferentNames) {
    QSet<std::pair<QString, QString>> seen;
    for (const Row& row : table("k_surodenci")) {
        const std::pair entry(text(row, "idkod"), text(row, "meno"));
        EXPECT_FALSE(seen.contains(entry));
        seen.insert(entry);
    }
}

TEST_F(Register, plansNextVisitsOnOtherDays) {
    QSet<std::pair<QString, QDate>> taken;
    for (const Row& row : table("k_navstevy"))
        taken.insert({text(row, "idkod"), date(row, "datum")});
    for (const Row& row : table("k_navstevy")) {
        EXPECT_GT(date(row, "dat_budn"), date(row, "datum"));
        EXPECT_FALSE(taken.contains({text(row, "idkod"), date(row, "dat_budn")}));
    }
}

TEST_F(Register, takesEveryFunctionAndOneDirector) {
    QHash<QString, int> functions;
    for (const Row& row : table("zamestnanci"))
        ++functions[text(row, "prac_zar")];
    EXPECT_EQ(functions.size(), 8);
    EXPECT_EQ(functions[QStringLiteral("1")], 1);
    EXPECT_EQ(texts("zamestnanci", "int-ext").size(), 2);
    EXPECT_EQ(texts("zamestnanci", "kvalifikacia").size(), 2);
}

TEST_F(Register, writesTextsWithoutHoles) {
    const std::pair<const char*, const char*> columns[] = {
        {"k_memo", "u_dolezite"},  {"k_memo", "poznamky"},      {"k_memo", "ip_tvkz"},
        {"k_memo", "u_dieta"},     {"k_memo", "u_ziak"},        {"k_memo", "u_zhrn"},
        {"k_vysetrenie", "popis"}, {"k_zaznam_zmeny", "zmeny"}, {"k_zaznam_spc", "cinnost"}};
    for (const auto& [name, column] : columns) {
        const QSet<QString> written = texts(name, column);
        EXPECT_GT(written.size(), 10) << name << '.' << column;
        for (const QString& one : written)
            EXPECT_FALSE(one.contains(u'{') || one.contains(u'|')) << one.toStdString();
    }
    EXPECT_FALSE(texts("k_zaznam_spc", "cinnost").contains(QString()));
}

TEST_F(Register, fillsTheTypedTablesWithSumsThatAgree) {
    const Row& indicators = table("dop_ukaz").at(0);
    EXPECT_EQ(text(indicators, "r_0401").toInt() + text(indicators, "r_0402").toInt() +
                  text(indicators, "r_0403").toInt() + text(indicators, "r_0404").toInt(),
              text(indicators, "r_0416").toInt());
    const auto& care = table("odbstar");
    ASSERT_EQ(care.size(), 28U);
    const auto cell = [&](std::size_t row, int column) {
        return text(care[row], qPrintable(QStringLiteral("s_%1").arg(column))).toInt();
    };
    const std::pair<std::size_t, std::size_t> groups[] = {{0, 4}, {5, 13}, {14, 20}, {21, 26}};
    for (int column = 1; column <= 10; ++column) {
        int all = 0;
        for (const auto& [head, last] : groups) {
            int members = 0;
            for (std::size_t row = head + 1; row <= last; ++row)
                members += cell(row, column);
            EXPECT_EQ(cell(head, column), members) << head << ' ' << column;
            all += 2 * members;
        }
        EXPECT_EQ(cell(27, column), all);
    }
    for (std::size_t row = 0; row < 28; ++row) {
        EXPECT_EQ(cell(row, 1), cell(row, 2) + cell(row, 3) + cell(row, 4) + cell(row, 5));
        EXPECT_EQ(cell(row, 6), cell(row, 7) + cell(row, 8) + cell(row, 9) + cell(row, 10));
    }
    EXPECT_EQ(text(care[3], "v_tom") + text(care[0], "c_ria") + text(care[27], "c_ria"),
              QStringLiteral("v tom05010536"));
}

} // namespace
