// The invented register of the old format, against the list of what lies in it.

#include "oldregister/OldReader.h"
#include "store/FileBytes.h"
#include "store/Schema.h"
#include "store/Value.h"

#include <gtest/gtest.h>

using namespace oldregister;

namespace {

QString escaped(QString text) {
    return text.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'\t', QStringLiteral("\\t"))
        .replace(u'\n', QStringLiteral("\\n"))
        .replace(u'\r', QStringLiteral("\\r"));
}

QString told(const OldValue& value, OldType type) {
    struct Teller {
        OldType type;
        QString operator()(std::monostate /*null*/) const { return QStringLiteral("null:"); }
        QString operator()(bool flag) const {
            return flag ? QStringLiteral("bool:-1") : QStringLiteral("bool:0");
        }
        QString operator()(qint64 number) const { return QStringLiteral("num:%1").arg(number); }
        QString operator()(double number) const { return QStringLiteral("num:%1").arg(number); }
        QString operator()(const QString& text) const {
            return (type == OldType::Memo ? QStringLiteral("memo:") : QStringLiteral("text:")) +
                   escaped(text);
        }
        QString operator()(RawDate date) const {
            const auto read = toDateTime(date).value();
            return QStringLiteral("date:") +
                   QDateTime(read.date, read.time).toString(u"yyyy-MM-dd hh:mm:ss");
        }
        QString operator()(Unreadable /*value*/) const { return QStringLiteral("unreadable"); }
    };
    return std::visit(Teller{type}, value);
}

/// All rows of a file as lines, sorted; troubles are lines, too.
QStringList linesOf(const QString& path, QStringList* foreign = nullptr) {
    OldReader reader(path, {});
    TableList list;
    QStringList lines;
    for (;;) {
        const Message message = reader.next();
        if (std::holds_alternative<EndOfFile>(message))
            break;
        if (const auto* tables = std::get_if<TableList>(&message))
            list = *tables;
        if (const auto* page = std::get_if<BrokenPage>(&message))
            lines += QStringLiteral("broken page of ") + list.tables[page->table].name;
        if (const auto* row = std::get_if<OldRow>(&message)) {
            const OldTable& table = list.tables[row->table];
            QStringList fields{table.name.toLower()};
            for (std::size_t index = 0; index < row->values.size(); ++index)
                fields += table.columns[index].name.toLower() + u'=' +
                          told(row->values[index], table.columns[index].type);
            lines += fields.join(u'\t');
        }
    }
    if (foreign != nullptr)
        *foreign = QStringList(list.foreign.begin(), list.foreign.end());
    lines.sort();
    return lines;
}

QStringList expectedLines() {
    QStringList lines;
    const QStringList all = QString::fromUtf8(files::read(QStringLiteral(TVK_OLD_ROWS)))
                                .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : all) {
        const QString table = line.section(u'\t', 0, 0).toLower();
        if (store::findTable(table) != nullptr)
            lines += table + line.mid(table.size());
    }
    lines.sort();
    return lines;
}

} // namespace

TEST(OldReader, GivesEveryRowToTheLetter) {
    QStringList foreign;
    const QStringList lines = linesOf(QStringLiteral(TVK_OLD_SAMPLE), &foreign);
    const QStringList expected = expectedLines();
    ASSERT_EQ(lines.size(), expected.size());
    for (qsizetype index = 0; index < lines.size(); ++index)
        EXPECT_EQ(lines[index].toStdString(), expected[index].toStdString());
    EXPECT_EQ(foreign, QStringList{QStringLiteral("Chyby vloženia")});
}
