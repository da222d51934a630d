#include "mkdb/Register.h"

#include "card/Key.h"
#include "mkdb/BirthNumber.h"
#include "mkdb/Calendar.h"
#include "mkdb/Commands.h"
#include "mkdb/Random.h"
#include "mkdb/TextMaker.h"
#include "store/FileBytes.h"
#include "support/Lists.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace Qt::StringLiterals;

const QDate today(2026, 11, 23);

void make(const QString& file, int clients, int seed, const QDate& day = today) {
    mkdb::run({mkdb::Command::Sample,
               file,
               QStringLiteral(TVK_DATA_FOLDER "/ciselniky"),
               QStringLiteral(TVK_DATA_FOLDER "/ukazka"),
               {clients, static_cast<std::uint64_t>(seed), day}});
}

support::TemporaryRegister& sample() {
    static support::TemporaryRegister sample{[](const QString& file) {
        make(file, 300, 1);
    }};
    return sample;
}

TEST(Register, isTheSameForTheSameSeedAlone) {
    const QTemporaryDir folder;
    const auto made = [&](int seed, const QDate& day) {
        const QString file = folder.filePath(u"a.mdb"_s);
        make(file, 40, seed, day);
        const QByteArray bytes = files::read(file);
        QFile::remove(file);
        return bytes;
    };
    const QByteArray first = made(5, today);
    EXPECT_EQ(made(5, today), first);
    EXPECT_NE(made(6, today), first);
    EXPECT_NE(made(5, today.addYears(-3)), first);
    mkdb::Random onEveryMachine(1, 0);
    for (const int drawn : {2, 598, 53, 794, 558})
        EXPECT_EQ(onEveryMachine.below(1000), drawn);
}

/// A line is the fewest and the most rows, and the selection that has to have so many.
TEST(Register, holdsRowsThatAgree) {
    for (const QStringList& parts : support::linesOf(u"rows.tsv"_s)) {
        const qint64 rows = sample().count(parts.at(2));
        EXPECT_GE(rows, parts[0].toInt()) << qPrintable(parts[2]);
        EXPECT_LE(rows, parts[1].toInt()) << qPrintable(parts[2]);
    }
}

TEST(Register, makesNamesNumbersAndTexts) {
    EXPECT_EQ(mkdb::schoolYearStart({2026, 8, 31}), QDate(2025, 9, 1));
    EXPECT_EQ(mkdb::fillTemplate(u"{meno} {bol|bola} {rád|rada}."_s, u"Eva"_s, true),
              u"Eva bola rada."_s);
    const auto rows = sample().database().OpenRecordset(u"select * from k_zaklad"_s);
    for (; !rows->Eof(); rows->MoveNext())
        EXPECT_TRUE(rows->Fields(u"idkod").Value().toText().startsWith(card::keyBase(
            {rows->Fields(u"priezv").Value().toText(), rows->Fields(u"meno").Value().toText()})));
    mkdb::BirthNumbers numbers;
    mkdb::Random random(1, 0);
    std::set<QString> given;
    const auto giveAll = [&] {
        for (int tried = 0; tried < 1001; ++tried)
            EXPECT_TRUE(given.insert(numbers.make({2010, 6, 7}, false, random)).second);
    };
    EXPECT_THROW(giveAll(), std::runtime_error);
    EXPECT_GT(given.size(), 900U);
}

} // namespace
