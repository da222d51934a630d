#include "Sample.h"
#include "oldregister/OldReader.h"
#include "store/EngineError.h"
#include "store/Value.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace oldregister;

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

TEST(OldReader, CountsDaysBeforeTheFirstOneBackwardsAndTheirTimesForwards) {
    struct Case {
        double days;
        const char16_t* date;
    };
    const Case cases[] = {{0, u"1899-12-30 00:00:00"},       {-1.25, u"1899-12-29 06:00:00"},
                          {-0.75, u"1899-12-30 18:00:00"},   {38961.999999, u"2006-09-02 00:00:00"},
                          {-657434, u"0100-01-01 00:00:00"}, {2958465.5, u"9999-12-31 12:00:00"}};
    for (const auto& [days, date] : cases) {
        const auto read = toDateTime({days}).value();
        EXPECT_EQ(QDateTime(read.date, read.time).toString(u"yyyy-MM-dd hh:mm:ss").toStdString(),
                  QString::fromUtf16(date).toStdString());
    }
    for (const double days : {-657435.0, 2958466.0, qQNaN(), qInf()})
        EXPECT_FALSE(toDateTime({days}));
}
