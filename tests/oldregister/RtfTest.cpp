#include "oldregister/Rtf.h"

#include "report/StoredText.h"
#include "support/Lists.h"

#include <gtest/gtest.h>

using namespace oldregister;
using namespace Qt::StringLiterals;

/// A line is what is told ("rtf" is the body of one), a name for it, the old text and the new one.
TEST(Rtf, BecomesTheEditorsText) {
    const QString document = u"{\\rtf1\\ansi\\ansicpg1250\\deff0{\\fonttbl{\\f0\\fnil\\fcharset238{"
                             "\\*\\fname Arial;}Arial CE;}{\\f1\\fcharset204 Arial;}"
                             "{\\f2\\fnil\\fcharset2 Symbol;}}\r\n{\\colortbl ;\\red255;}\r\n"
                             "\\viewkind4\\uc1\\pard\\f0\\fs17 %1\r\n}\r\n\0"_s;
    for (const QStringList& line : support::linesOf(u"rtf.tsv"_s)) {
        SCOPED_TRACE(line[1].toStdString());
        const QString old = line[0] == u"rtf" ? document.arg(line[2]) : line[2];
        EXPECT_EQ(toStoredText(old).toStdString(), line[3].toStdString());
        if (isRtf(old)) {
            EXPECT_EQ(report::storedText(report::readStored(line[3])), line[3]);
        }
    }
}
