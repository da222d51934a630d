#include "statreturn/ExpertCare.h"

#include "store/EngineError.h"
#include "store/Recordset.h"
#include "validation/Validators.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace statreturn {

namespace {

constexpr int controlRow = 27;

constexpr const char16_t* notOfThat = u"     ";
constexpr std::array<CareRow, careRows> table = {{
    {u"0501", notOfThat, u"Diagnostika"},
    {u"0502", notOfThat, u"       špeciálnopedagogická"},
    {u"0503", notOfThat, u"       psychologická"},
    {u"0504", u"v tom", u"       sociálna"},
    {u"0505", notOfThat, u"       iná"},
    {u"0506", notOfThat, u"Poradenstvo"},
    {u"0507", notOfThat, u"       špeciálnopedagogické"},
    {u"0508", notOfThat, u"       psychologické"},
    {u"0509", notOfThat, u"       liečebno-pedagogické"},
    {u"0510", u"v tom", u"       profesijné"},
    {u"0511", notOfThat, u"       sociálne"},
    {u"0512", notOfThat, u"       rodinám a zákonným zástupcom"},
    {u"0513", notOfThat, u"       v oblasti kompenzačných pomôcok"},
    {u"0514", notOfThat, u"       iné"},
    {u"0515", notOfThat, u"Špeciálnopedagogické intervencie"},
    {u"0516", notOfThat, u"       prevencia"},
    {u"0517", notOfThat, u"       kompenzácia"},
    {u"0518", u"v tom", u"       reedukcia (edukácia)"},
    {u"0519", notOfThat, u"       korekcia"},
    {u"0520", notOfThat, u"       rehabilitácia"},
    {u"0521", notOfThat, u"      iné"},
    {u"0522", notOfThat, u"Pedagogickopsychologické intervencie",
     u"pedagogickopsychologické intervencie"},
    {u"0523", notOfThat, u"       psychoterapia"},
    {u"0524", notOfThat, u"       socioterapia"},
    {u"0525", u"v tom", u"       terapia prostredníctvom umeleckých médií"},
    {u"0526", notOfThat, u"       liečebno-pedagogická terapia"},
    {u"0527", notOfThat, u"       iné"},
    {u"0536", notOfThat, u"Kontrolný súčet (0501 až 0527)", u"Kontrolný súčer (0501 až 0527 )"},
}};

constexpr std::array<ColumnCheck, 5> downColumns = {{
    {4, 0, 1, 4, 0},
    {13, 5, 6, 13, 5},
    {20, 14, 15, 20, 14},
    {26, 21, 22, 26, 21},
    {controlRow, controlRow, 0, 26, 0},
}};

constexpr std::array<BlockCheck, 2> alongRows = {{{0, 4}, {5, 9}}};

double numberIn(const CareCells& cells, int row, int column) {
    return double(modKontrola::Val(cells[std::size_t(row)][std::size_t(column)]));
}

/// The column that the message names: of the first group, the second column goes by the name of
/// the first.
QString namedColumn(const ColumnCheck& check, int column) {
    return careColumnName(check.statedRow == 0 && column == 1 ? 0 : column);
}

QString readCell(store::Recordset& rows, int column) {
    const QString text = rows.Fields(careField(column)).Value().toText();
    return modKontrola::Val(text) != 0 ? text : QStringLiteral("0");
}

QString storedCell(const QString& typed) {
    return modKontrola::Val(typed) != 0 ? typed : QStringLiteral(" ");
}

void describeRow(store::Recordset& rows, const CareRow& row) {
    rows.Fields(u"v_tom").setValue(QString::fromUtf16(row.ofThat));
    rows.Fields(u"naz_ria").setValue(QString::fromUtf16(row.text));
    rows.Fields(u"c_ria").setValue(QString::fromUtf16(row.code));
}

void requireWord(double sum) {
    if (sum > std::numeric_limits<qint16>::max())
        throw store::EngineError(
            store::ErrorNumber::Overflow,
            QStringLiteral("Súčet stĺpca je väčší ako 32767, kontrolný súčet sa nedá overiť."));
}

} // namespace

QString careField(int column) {
    return QStringLiteral("s_") + careColumnName(column);
}

QString careColumnName(int column) {
    return QString::number(column + 1);
}

std::span<const CareRow, careRows> careTable() {
    return table;
}

QString careRowCode(int row) {
    return QString::fromUtf16(table[std::size_t(row)].code);
}

std::span<const ColumnCheck, 5> columnChecks() {
    return downColumns;
}

std::span<const BlockCheck, 2> blockChecks() {
    return alongRows;
}

const BlockCheck& blockOf(int column) {
    return *std::ranges::find_if(
        alongRows, [&](const BlockCheck& block) { return column <= block.lastColumn; });
}

CareSum ColumnCheck::sumOf(const CareCells& cells, int column) const {
    CareSum sum{.stated = numberIn(cells, statedRow, column)};
    for (int row = firstSummed; row <= lastSummed; ++row)
        sum.summed += numberIn(cells, row, column);
    return sum;
}

QString ColumnCheck::message(int column) const {
    if (statedRow == controlRow)
        return QStringLiteral("Nesprávny Kontrolný súčet r0536 S%1 !").arg(careColumnName(column));
    QStringList members;
    for (int row = firstSummed; row <= lastSummed; ++row)
        members += u'r' + careRowCode(row);
    // The form's own instructions name one row more for this group, which does not exist.
    if (lastSummed == controlRow - 1)
        members += QStringLiteral("r0528");
    return QStringLiteral("Riadok %1 stl.%2 <> %3 !")
        .arg(careRowCode(statedRow), namedColumn(*this, column), members.join(u'+'));
}

CareSum BlockCheck::sumOf(const CareCells& cells, int row) const {
    CareSum sum{.stated = numberIn(cells, row, total)};
    for (int column = total + 1; column <= lastColumn; ++column)
        sum.summed += numberIn(cells, row, column);
    return sum;
}

QString BlockCheck::message() const {
    QStringList parts;
    for (int column = total + 1; column <= lastColumn; ++column)
        parts += u's' + careColumnName(column);
    return QStringLiteral("Stĺpec %1 <> %2 !").arg(careColumnName(total), parts.join(u'+'));
}

std::optional<CareFault> faultAlongRow(const CareCells& cells, int row, int column) {
    const BlockCheck& block = blockOf(column);
    if (column != block.lastColumn || block.sumOf(cells, row).agrees())
        return std::nullopt;
    return CareFault{block.message(), row, block.total};
}

std::optional<CareFault> faultDownColumn(const CareCells& cells, int row, int column) {
    const auto* check = std::ranges::find(downColumns, row, &ColumnCheck::lastRow);
    if (check == downColumns.end())
        return std::nullopt;
    const CareSum sum = check->sumOf(cells, column);
    if (row == controlRow)
        requireWord(sum.summed);
    if (sum.agrees())
        return std::nullopt;
    return CareFault{check->message(column), check->returnsTo, column};
}

CareCells readCare(store::Recordset& rows) {
    CareCells cells;
    for (auto& row : cells)
        row.fill(QStringLiteral("0"));
    while (!rows.Eof()) {
        for (auto& row : cells) {
            for (int column = 0; column < careColumns; ++column)
                row[std::size_t(column)] = readCell(rows, column);
            rows.MoveNext();
        }
    }
    return cells;
}

void writeCare(store::Recordset& rows, bool hasRows, const CareCells& cells) {
    if (hasRows)
        rows.MoveFirst();
    for (std::size_t row = 0; row < cells.size(); ++row) {
        if (hasRows) {
            rows.Edit();
        } else {
            rows.AddNew();
            describeRow(rows, table[row]);
        }
        for (int column = 0; column < careColumns; ++column)
            rows.Fields(careField(column)).setValue(storedCell(cells[row][std::size_t(column)]));
        rows.Update();
        if (hasRows)
            rows.MoveNext();
    }
}

} // namespace statreturn
