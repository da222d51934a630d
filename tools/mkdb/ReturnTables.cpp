#include "ReturnTables.h"

#include <array>
#include <span>

namespace mkdb {

namespace {

constexpr int indicators = 4;
constexpr int columns = 10;
/// A row of expert care: ambulatory total, its four parts, field total, its four parts.
using CareRow = std::array<int, columns>;
using Indicators = std::array<int, indicators>;

struct RowText {
    bool bracket;
    const char16_t* name;
};

/// A head row whose numbers are the sums of the `members` rows behind it.
struct Group {
    int members;
};
constexpr Group groups[] = {{4}, {8}, {6}, {5}};

constexpr RowText rowTexts[] = {
    {false, u"Diagnostika"},
    {false, u"       špeciálnopedagogická"},
    {false, u"       psychologická"},
    {true, u"       sociálna"},
    {false, u"       iná"},
    {false, u"Poradenstvo"},
    {false, u"       špeciálnopedagogické"},
    {false, u"       psychologické"},
    {false, u"       liečebno-pedagogické"},
    {true, u"       profesijné"},
    {false, u"       sociálne"},
    {false, u"       rodinám a zákonným zástupcom"},
    {false, u"       v oblasti kompenzačných pomôcok"},
    {false, u"       iné"},
    {false, u"Špeciálnopedagogické intervencie"},
    {false, u"       prevencia"},
    {false, u"       kompenzácia"},
    {true, u"       reedukcia (edukácia)"},
    {false, u"       korekcia"},
    {false, u"       rehabilitácia"},
    {false, u"      iné"},
    {false, u"Pedagogickopsychologické intervencie"},
    {false, u"       psychoterapia"},
    {false, u"       socioterapia"},
    {true, u"       terapia prostredníctvom umeleckých médií"},
    {false, u"       liečebno-pedagogická terapia"},
    {false, u"       iné"},
    {false, u"Kontrolný súčet (0501 až 0527)"},
};
constexpr int careRows = static_cast<int>(std::size(rowTexts));
using CareTable = std::array<CareRow, careRows>;

/// The rows are numbered in sequence; only the sum at the end has a number of its own.
QString rowCode(int row) {
    return row == careRows - 1 ? QStringLiteral("0536")
                               : QStringLiteral("05%1").arg(row + 1, 2, 10, QLatin1Char('0'));
}

void add(CareRow& sum, const CareRow& row) {
    for (int column = 0; column < columns; ++column)
        sum[column] += row[column];
}

CareRow drawCareRow(Random& random) {
    CareRow row{};
    for (const int total : {0, 5}) {
        for (int part = total + 1; part < total + 5; ++part) {
            row[part] = random.percent(70) ? random.between(1, 60) : 0;
            row[total] += row[part];
        }
    }
    return row;
}

CareTable drawCareTable(Random& random) {
    CareTable table{};
    int row = 0;
    for (const Group& group : groups) {
        CareRow& head = table[row++];
        for (int member = 0; member < group.members; ++member, ++row) {
            table[row] = drawCareRow(random);
            add(head, table[row]);
        }
    }
    for (int counted = 0; counted < careRows - 1; ++counted)
        add(table.back(), table[counted]);
    return table;
}

store::Value cell(int number) {
    return number == 0 ? QStringLiteral(" ") : QString::number(number);
}

void writeCare(const CareTable& table, RowSink& sink) {
    static const RowShape shape{u"odbstar",
                                {u"v_tom", u"naz_ria", u"c_ria", u"s_1", u"s_2", u"s_3", u"s_4",
                                 u"s_5", u"s_6", u"s_7", u"s_8", u"s_9", u"s_10"}};
    for (int row = 0; row < careRows; ++row) {
        std::vector<store::Value> values{rowTexts[row].bracket ? QStringLiteral("v tom")
                                                               : QStringLiteral("     "),
                                         QString::fromUtf16(rowTexts[row].name), rowCode(row)};
        for (const int number : table[row])
            values.push_back(cell(number));
        sink.add(shape, values);
    }
}

void writeIndicators(const std::vector<store::Value>& values, RowSink& sink) {
    static const RowShape shape{u"dop_ukaz",
                                {u"r_0401", u"r_0402", u"r_0403", u"r_0404", u"r_0416"}};
    sink.add(shape, values);
}

} // namespace

void writeFilledReturn(Random& random, RowSink& sink) {
    const int rooms = random.between(7, 14);
    const Indicators numbers{rooms, random.between(0, 2), random.between(3, 20),
                             random.between(40, 300)};
    std::vector<store::Value> values(numbers.begin(), numbers.end());
    values.emplace_back(numbers[0] + numbers[1] + numbers[2] + numbers[3]);
    writeIndicators(values, sink);
    writeCare(drawCareTable(random), sink);
}

} // namespace mkdb
