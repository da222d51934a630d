#include "Sample.h"
#include "oldregister/OldReader.h"
#include "store/EngineError.h"
#include "support/Lists.h"

using namespace oldregister;
using namespace Qt::StringLiterals;
using store::Value;

TEST(OldReader, TurnsTheDeathOfItsProcessIntoAMessage) {
    const auto readWith = [](const ReaderLimits& limits) {
        OldReader reader(sample::path, {}, limits);
        while (!std::holds_alternative<EndOfFile>(reader.next())) {
        }
    };
#ifndef __SANITIZE_ADDRESS__ // under which memory is not limited
    EXPECT_THROW(readWith({{.megabytes = 1, .processorSeconds = 120}}), store::EngineError);
#endif
    EXPECT_THROW(readWith({{.megabytes = 120, .processorSeconds = 0}}), store::EngineError);
    EXPECT_NO_THROW(readWith({}));
}

/// A line is a count of days and the moment that it is.
TEST(OldReader, CountsDaysBeforeTheFirstOneBackwardsAndTheirTimesForwards) {
    for (const QStringList& line : support::linesOf(u"days.tsv"_s))
        EXPECT_EQ(Value(toDateTime({line[0].toDouble()}).value()), support::valueOf(line[1]));
    for (const double days : {-657435.0, 2958466.0, qQNaN(), qInf()})
        EXPECT_FALSE(toDateTime({days}));
}
