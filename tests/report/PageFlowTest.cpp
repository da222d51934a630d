#include "report/PageFlow.h"

#include "support/Lists.h"

#include <gtest/gtest.h>

using report::PageFlow;
using namespace Qt::StringLiterals;

namespace {

/// Pages run from 100 to 1100; the first band is followed by a page header. A line is a name, the
/// height of that header, the bands as "height:cut,cut", and the slices as "page@top:from-to".
TEST(PageFlow, PlacesBandsOnPages) {
    for (const QStringList& line : support::linesOf(u"flow.tsv"_s)) {
        PageFlow flow(100, 1100);
        QStringList slices;
        for (const QString& band : line[2].split(u' ')) {
            std::vector<double> cuts;
            for (const QString& cut : band.section(u':', 1).split(u',', Qt::SkipEmptyParts))
                cuts.push_back(cut.toDouble());
            for (const auto& slice : flow.place(band.section(u':', 0, 0).toDouble(), cuts))
                slices << u"%1@%2:%3-%4"_s.arg(slice.page)
                              .arg(slice.top)
                              .arg(slice.from)
                              .arg(slice.to);
            if (slices.size() == 1)
                flow.repeatHeader(line[1].toDouble());
        }
        EXPECT_EQ(slices.join(u' ').toStdString(), line[3].toStdString()) << line[0].toStdString();
    }
}

} // namespace
