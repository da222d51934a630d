#include "statreturn/ExpertCare.h"

#include "store/EngineAssertions.h"

#include <QStringList>

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

TEST(ExpertCare, ComparesSumsWhenTheirLastCellIsLeft) {
    struct Case {
        QString cells;
        int row, column;
        /// What is told of the column, or of the row.
        QString ofColumn = u"passed"_s, ofRow = u"passed"_s;
    };
    const Case cases[] = {
        {u""_s, 27, 9},
        {u"0,0=5 1,0=2 4,0=3"_s, 4, 0},
        {u"0,0=5 1,0=2 3,0=2"_s, 4, 0, u"Riadok 0501 stl.1 <> r0502+r0503+r0504+r0505 ! -> 0,0"_s},
        // The second column goes by the first one's name here, and here alone.
        {u"4,1=1"_s, 4, 1, u"Riadok 0501 stl.1 <> r0502+r0503+r0504+r0505 ! -> 0,1"_s},
        {u"2,2=1"_s, 4, 2, u"Riadok 0501 stl.3 <> r0502+r0503+r0504+r0505 ! -> 0,2"_s},
        {u"6,1=1 13,1=1 5,1=1"_s, 13, 1,
         u"Riadok 0506 stl.2 <> r0507+r0508+r0509+r0510+r0511+r0512+r0513+r0514 ! -> 5,1"_s},
        {u"20,8=7 15,8=1 14,8=7"_s, 20, 8,
         u"Riadok 0515 stl.9 <> r0516+r0517+r0518+r0519+r0520+r0521 ! -> 14,8"_s},
        {u"26,9=4 26,5=4"_s, 26, 9,
         u"Riadok 0522 stl.10 <> r0523+r0524+r0525+r0526+r0527+r0528 ! -> 21,9"_s},
        {u"0,3=2 26,3=3 27,3=4"_s, 27, 3, u"Nesprávny Kontrolný súčet r0536 S4 ! -> 0,3"_s},
        {u"0,3=2 26,3=3 27,3=5"_s, 27, 3},
        {u"9,0=10 9,1=1 9,2=2 9,3=3 9,4=4"_s, 9, 4},
        {u"9,0=9 9,1=10"_s, 9, 4, u"passed"_s, u"Stĺpec 1 <> s2+s3+s4+s5 ! -> 9,0"_s},
        {u"9,6=1"_s, 9, 9, u"passed"_s, u"Stĺpec 6 <> s7+s8+s9+s10 ! -> 9,5"_s},
        // Nothing is compared when another cell is left.
        {u"0,0=5 9,6=1 27,2=3"_s, 9, 8}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.cells.toStdString());
        const CareCells cells = cellsWith(one.cells);
        EXPECT_EQ(told(faultAlongRow(cells, one.row, one.column)), one.ofRow);
        EXPECT_EQ(told(faultDownColumn(cells, one.row, one.column)), one.ofColumn);
    }
}

TEST(ExpertCare, RefusesAColumnThatAWordDoesNotHold) {
    EXPECT_EQ(told(faultDownColumn(cellsWith(u"3,0=32767 27,0=32767"_s), 27, 0)), u"passed"_s);
    EXPECT_ENGINE_ERROR(faultDownColumn(cellsWith(u"3,0=32767 26,0=1"_s), 27, 0), 6);
}
