#include "datacheck/RecordTables.h"

#include "report/StoredText.h"

#include <QStringList>

namespace datacheck {

namespace {

constexpr RecordTable tables[] = {
    {textTable, u"Texty", u"texty"},
    {u"k_surodenci", u"Súrodenec", u"súrodenci"},
    {u"k_zariad", u"Zaradenie", u"zaradenia"},
    {u"k_vysetrenie", u"Vyšetrenie", u"vyšetrenia", true},
    {u"k_zaznam_zmeny", u"Zaznamenaná zmena", u"zaznamenané zmeny", true},
    {u"k_zaznam_spc", u"Záznam starostlivosti", u"záznamy starostlivosti", true},
    {u"k_navstevy", u"Návšteva", u"návštevy"},
};

QString plainWords(const QString& stored) {
    QStringList paragraphs;
    for (const report::RichParagraph& paragraph : report::readStored(stored)) {
        QString text;
        for (const report::MarkedWords& words : paragraph.words)
            text += words.text;
        paragraphs += text;
    }
    return paragraphs.join(u' ').simplified();
}

} // namespace

std::span<const RecordTable> recordTables() {
    return tables;
}

QString wordsOf(store::Recordset& row, const RecordTable& table) {
    QStringList values;
    for (const store::OutputColumn& column : row.columns()) {
        if (column.name.compare(u"idkod", Qt::CaseInsensitive) == 0)
            continue;
        const QString text = row.Fields(column.name).Value().toText();
        const QString words =
            column.type == store::ColumnType::Memo ? plainWords(text) : text.trimmed();
        if (!words.isEmpty())
            values += words;
    }
    if (values.isEmpty())
        values += QStringLiteral("(prázdny záznam)");
    return table.one.toString() + QStringLiteral(": ") + values.join(QStringLiteral("; "));
}

} // namespace datacheck
