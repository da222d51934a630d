#include "statreturn/ExpertCare.h"

#include "store/EngineAssertions.h"
#include "support/Lists.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

/// A form of zeros with these cells, as "row,column=text" from 0.
CareCells cellsWith(const QString& places) {
    CareCells cells;
    for (const QString& place : places.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype comma = place.indexOf(u','), equals = place.indexOf(u'=');
        cells[place.first(comma).toUInt()][place.sliced(comma + 1, equals - comma - 1).toUInt()] =
            place.sliced(equals + 1);
    }
    return cells;
}

QString told(const std::optional<CareFault>& fault) {
    return fault ? u"%1 -> %2,%3"_s.arg(fault->message).arg(fault->row).arg(fault->column)
                 : u"passed"_s;
}

} // namespace

/// A line is cells, the cell that is left, and what is told of its column and of its row. The
/// second column goes by the first one's name in one row, and there alone.
TEST(ExpertCare, ComparesSumsWhenTheirLastCellIsLeft) {
    for (const QStringList& line : support::linesOf(u"care.tsv"_s)) {
        SCOPED_TRACE(line.join(u' ').toStdString());
        const CareCells cells = cellsWith(line[0]);
        const int row = line[1].section(u',', 0, 0).toInt(),
                  column = line[1].section(u',', 1).toInt();
        EXPECT_EQ(told(faultDownColumn(cells, row, column)), line[2]);
        EXPECT_EQ(told(faultAlongRow(cells, row, column)), line[3]);
    }
}

TEST(ExpertCare, RefusesAColumnThatAWordDoesNotHold) {
    EXPECT_ENGINE_ERROR(faultDownColumn(cellsWith(u"3,0=32767 26,0=1"_s), 27, 0), 6);
}
