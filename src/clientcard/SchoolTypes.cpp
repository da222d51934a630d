#include "clientcard/SchoolTypes.h"

#include "forms/DropDown.h"

namespace clientcard {

// Special primary schools stand there twice: the type counts in two rows of the return.
void naplnTypSkoly(forms::DropDown& list) {
    list.setItems({
        QStringLiteral("01 Materská škola"),
        QStringLiteral("02 Špeciálna materská škola"),
        QStringLiteral("03 Iné zariadenie"),
        QStringLiteral("04 Nezaradené v predškolskom zariad."),
        QStringLiteral("05 Bežná trieda ZŠ"),
        QStringLiteral("06 Špec.trieda základnej školy"),
        QStringLiteral("07 Špeciálna základná škola"),
        QStringLiteral("08 Odložená školská doch."),
        QStringLiteral("09 Oslobod. od dochádzania do školy"),
        QStringLiteral("10 Oslobod. od školskej dochádzky"),
        QStringLiteral("11 Doteraz nezaškolený"),
        QStringLiteral("12 Stredná škola"),
        QStringLiteral("13 Špeciálna stredná škola,OU"),
        QStringLiteral("14 Špeciálna základná škola"),
        QStringLiteral("15 Praktická škola"),
        QStringLiteral("16 Bez ďaľšieho vzdelávania"),
    });
}

} // namespace clientcard
