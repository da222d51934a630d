#include "statreturn/ExpertCare.h"

#include "store/EngineAssertions.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

/// A form of zeros with these cells, as "row,column=text" from 0.
CareCells cellsWith(const QStringList& places) {
    CareCells cells;
    for (const QString& place : places) {
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
        QStringList cells;
        int row, column;
        QString alongRow, downColumn;
    };
    const QString passed = u"passed"_s;
    const Case cases[] = {
        {{}, 27, 9, passed, passed},
        {{u"0,0=5"_s, u"1,0=2"_s, u"4,0=3"_s}, 4, 0, passed, passed},
        {{u"0,0=5"_s, u"1,0=2"_s, u"3,0=2"_s},
         4,
         0,
         passed,
         u"Riadok 0501 stl.1 <> r0502+r0503+r0504+r0505 ! -> 0,0"_s},
        // The second column goes by the first one's name here, and here alone.
        {{u"4,1=1"_s}, 4, 1, passed, u"Riadok 0501 stl.1 <> r0502+r0503+r0504+r0505 ! -> 0,1"_s},
        {{u"2,2=1"_s}, 4, 2, passed, u"Riadok 0501 stl.3 <> r0502+r0503+r0504+r0505 ! -> 0,2"_s},
        {{u"6,1=1"_s, u"13,1=1"_s, u"5,1=1"_s},
         13,
         1,
         passed,
         u"Riadok 0506 stl.2 <> r0507+r0508+r0509+r0510+r0511+r0512+r0513+r0514 ! -> 5,1"_s},
        {{u"20,8=7"_s, u"15,8=1"_s, u"14,8=7"_s},
         20,
         8,
         passed,
         u"Riadok 0515 stl.9 <> r0516+r0517+r0518+r0519+r0520+r0521 ! -> 14,8"_s},
        {{u"26,9=4"_s, u"26,5=4"_s},
         26,
         9,
         passed,
         u"Riadok 0522 stl.10 <> r0523+r0524+r0525+r0526+r0527+r0528 ! -> 21,9"_s},
        {{u"0,3=2"_s, u"26,3=3"_s, u"27,3=4"_s},
         27,
         3,
         passed,
         u"Nesprávny Kontrolný súčet r0536 S4 ! -> 0,3"_s},
        {{u"0,3=2"_s, u"26,3=3"_s, u"27,3=5"_s}, 27, 3, passed, passed},
        {{u"9,0=10"_s, u"9,1=1"_s, u"9,2=2"_s, u"9,3=3"_s, u"9,4=4"_s}, 9, 4, passed, passed},
        {{u"9,0=9"_s, u"9,1=10"_s}, 9, 4, u"Stĺpec 1 <> s2+s3+s4+s5 ! -> 9,0"_s, passed},
        {{u"9,6=1"_s}, 9, 9, u"Stĺpec 6 <> s7+s8+s9+s10 ! -> 9,5"_s, passed},
        // Nothing is compared when another cell is left.
        {{u"0,0=5"_s, u"9,6=1"_s, u"27,2=3"_s}, 9, 8, passed, passed},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.cells.join(u' ').toStdString());
        const CareCells cells = cellsWith(one.cells);
        EXPECT_EQ(told(faultAlongRow(cells, one.row, one.column)), one.alongRow);
        EXPECT_EQ(told(faultDownColumn(cells, one.row, one.column)), one.downColumn);
    }
}

TEST(ExpertCare, RefusesAColumnThatAWordDoesNotHold) {
    EXPECT_EQ(told(faultDownColumn(cellsWith({u"3,0=32767"_s, u"27,0=32767"_s}), 27, 0)),
              u"passed"_s);
    EXPECT_ENGINE_ERROR(faultDownColumn(cellsWith({u"3,0=32767"_s, u"26,0=1"_s}), 27, 0), 6);
}
