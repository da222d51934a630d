#include "words/Kept.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace words {

namespace {

using namespace Qt::StringLiterals;

/// A greater number is for what an older program would misread.
constexpr QByteArrayView mark = "TVK-slova 1 ";

/// A line has room for so many.
constexpr qsizetype mostFields = 4;

QByteArray headOf(const QByteArray& body) {
    return mark.toByteArray() + QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex() +
           '\n';
}

QJsonObject toJson(const forms::Word& word) {
    return {{u"pole"_s, word.field},    {u"stlpec"_s, word.column},      {u"text"_s, word.text},
            {u"popis"_s, word.caption}, {u"formatovany"_s, word.isRich}, {u"riadok"_s, word.row}};
}

forms::Word wordOf(const QJsonObject& json) {
    return {json[u"pole"_s].toString(),      json[u"stlpec"_s].toString(),
            json[u"text"_s].toString(),      json[u"popis"_s].toString(),
            json[u"formatovany"_s].toBool(), json[u"riadok"_s].toInt(-1)};
}

QJsonObject toJson(const Kept& kept) {
    QJsonArray all;
    for (const forms::Word& word : kept.words)
        all.append(toJson(word));
    return {{u"id"_s, kept.id},
            {u"obrazovka"_s, kept.screen},
            {u"cast"_s, kept.part},
            {u"nazov"_s, kept.title},
            {u"vlastnik"_s, kept.owner},
            {u"kluc"_s, kept.key},
            {u"kto"_s, kept.who},
            {u"tabulky"_s, QJsonArray::fromStringList(kept.tables)},
            {u"zaklad"_s, QString::fromLatin1(kept.basis)},
            {u"zvysok"_s, QString::fromLatin1(kept.rest)},
            {u"kedy"_s, kept.when.toString(Qt::ISODateWithMs)},
            {u"zahodene"_s, kept.isDropped},
            {u"slova"_s, all}};
}

Kept keptOf(const QJsonObject& json) {
    Kept kept{.id = json[u"id"_s].toString(),
              .screen = json[u"obrazovka"_s].toString(),
              .part = json[u"cast"_s].toInt(wholeScreen),
              .title = json[u"nazov"_s].toString(),
              .owner = json[u"vlastnik"_s].toString(),
              .key = json[u"kluc"_s].toString(),
              .who = json[u"kto"_s].toString(),
              .tables = {},
              .basis = json[u"zaklad"_s].toString().toLatin1(),
              .rest = json[u"zvysok"_s].toString().toLatin1(),
              .when = QDateTime::fromString(json[u"kedy"_s].toString(), Qt::ISODateWithMs),
              .isDropped = json[u"zahodene"_s].toBool(),
              .words = {}};
    for (const QJsonValue& table : json[u"tabulky"_s].toArray())
        kept.tables << table.toString();
    for (const QJsonValue& word : json[u"slova"_s].toArray())
        kept.words.push_back(wordOf(word.toObject()));
    return kept;
}

} // namespace

QByteArray toFile(const KeptWords& kept) {
    QJsonArray all;
    for (const Kept& each : kept)
        all.append(toJson(each));
    const QByteArray body = QJsonDocument(all).toJson(QJsonDocument::Compact);
    return headOf(body) + body;
}

std::optional<KeptWords> fromFile(const QByteArray& bytes) {
    const QByteArray body = bytes.sliced(bytes.indexOf('\n') + 1);
    if (!bytes.startsWith(headOf(body)))
        return std::nullopt;
    KeptWords kept;
    for (const QJsonValue& each : QJsonDocument::fromJson(body).array())
        kept.push_back(keptOf(each.toObject()));
    return kept;
}

QString titleOf(const Kept& kept) {
    const QString whose = kept.title.isEmpty() ? kept.who : kept.who + u", "_s + kept.title;
    return QStringLiteral("%1 (%2)").arg(whose,
                                         kept.when.toString(QStringLiteral("dd.MM.yyyy HH:mm")));
}

QString fieldsOf(const Kept& kept) {
    QStringList captions;
    for (const forms::Word& word : kept.words)
        captions << (word.caption.isEmpty() ? word.field : word.caption);
    captions.removeDuplicates();
    const qsizetype more = captions.size() - mostFields;
    const QString all = captions.first(std::min(captions.size(), mostFields)).join(u", "_s);
    return more > 0 ? QStringLiteral("%1 a ďalšie (%2)").arg(all).arg(more) : all;
}

} // namespace words
