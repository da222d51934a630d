// The reading process, on the invented register and on what becomes of it under a password.

#include "Sample.h"
#include "oldregister/OldReader.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"
#include "store/Value.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace oldregister;

namespace {

struct Teller {
    OldType type;
    QString operator()(std::monostate /*null*/) const { return QStringLiteral("null:"); }
    QString operator()(bool flag) const {
        return flag ? QStringLiteral("bool:-1") : QStringLiteral("bool:0");
    }
    QString operator()(qint64 number) const { return QStringLiteral("num:%1").arg(number); }
    QString operator()(double number) const { return QStringLiteral("num:%1").arg(number); }
    QString operator()(const QString& text) const {
        return sample::told(type == OldType::Memo ? QStringLiteral("memo") : QStringLiteral("text"),
                            text);
    }
    QString operator()(RawDate date) const {
        const auto read = toDateTime(date).value();
        return QStringLiteral("date:") +
               QDateTime(read.date, read.time).toString(u"yyyy-MM-dd hh:mm:ss");
    }
    QString operator()(Unreadable /*value*/) const { return QStringLiteral("unreadable"); }
};

QString lineOf(const OldTable& table, const std::vector<OldValue>& values) {
    QStringList fields;
    for (std::size_t index = 0; index < values.size(); ++index)
        fields += table.columns[index].name + u'=' +
                  std::visit(Teller{table.columns[index].type}, values[index]);
    return sample::line(table.name, fields);
}

/// All that is read of a file, in order of text.
QStringList linesOf(const QString& path) {
    OldReader reader(path, {});
    const auto list = std::get<TableList>(reader.next());
    EXPECT_EQ(list.foreign, std::vector{QStringLiteral("Chyby vloženia")});
    QStringList lines;
    Message message = reader.next();
    for (; !std::holds_alternative<EndOfFile>(message); message = reader.next()) {
        const auto& row = std::get<OldRow>(message);
        lines += lineOf(list.tables[row.table], row.values);
    }
    lines.sort();
    return lines;
}

} // namespace

TEST(OldReader, GivesEveryRowToTheLetter) {
    struct Case {
        const char* name;
        QByteArray bytes;
    };
    const Case cases[] = {{"as it is", sample::bytes()},
                          {"encoded", sample::encoded(sample::bytes())},
                          {"with a password", sample::withPassword(sample::bytes())}};
    const QTemporaryDir folder;
    const QStringList expected = sample::expectedLines();
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        const QString path = folder.filePath(QStringLiteral("stary.mdb"));
        files::write(path, bytes);
        const QStringList lines = linesOf(path);
        ASSERT_EQ(lines.size(), expected.size());
        for (qsizetype index = 0; index < lines.size(); ++index)
            EXPECT_EQ(lines[index].toStdString(), expected[index].toStdString());
    }
}

TEST(OldReader, TurnsTheDeathOfItsProcessIntoAMessage) {
    const auto readWith = [](const ReaderLimits& limits) {
        OldReader reader(sample::path, {}, limits);
        while (!std::holds_alternative<EndOfFile>(reader.next())) {
        }
    };
    EXPECT_THROW(readWith({.megabytes = 1}), store::EngineError);
    EXPECT_THROW(readWith({.processorSeconds = 0}), store::EngineError);
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
