#include "Sample.h"

#include "store/FileBytes.h"
#include "store/Schema.h"

#include <QtEndian>

#include <array>
#include <numeric>

namespace sample {

namespace {

constexpr qsizetype pageSize = 4096;
// What the header itself is scrambled with, and where what lies in it.
constexpr std::array<uchar, 4> headerKey{0xc7, 0xda, 0x39, 0x6b};
constexpr qsizetype scrambledFrom = 0x18;
constexpr qsizetype scrambledLength = 128;
constexpr qsizetype keyAt = 0x3e;
constexpr qsizetype passwordAt = 0x42;

void rc4(std::span<const uchar> key, char* bytes, qsizetype length) {
    std::array<uchar, 256> state{};
    std::iota(state.begin(), state.end(), uchar{0});
    uchar mixed = 0;
    for (std::size_t index = 0; index < state.size(); ++index) {
        mixed = static_cast<uchar>(mixed + state[index] + key[index % key.size()]);
        std::swap(state[index], state[mixed]);
    }
    uchar left = 0;
    uchar right = 0;
    for (qsizetype at = 0; at < length; ++at) {
        left = static_cast<uchar>(left + 1);
        right = static_cast<uchar>(right + state[left]);
        std::swap(state[left], state[right]);
        bytes[at] =
            static_cast<char>(bytes[at] ^ state[static_cast<uchar>(state[left] + state[right])]);
    }
}

void scrambleHeader(QByteArray& file) {
    rc4(headerKey, file.data() + scrambledFrom, scrambledLength);
}

/// A text of the list without its escapes.
QString untold(const QString& text) {
    QString plain;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] != u'\\') {
            plain += text[at];
            continue;
        }
        const QChar sign = text[++at];
        plain += sign == u't' ? u'\t' : sign == u'n' ? u'\n' : sign == u'r' ? u'\r' : u'\\';
    }
    return plain;
}

} // namespace

QByteArray bytes() {
    return files::read(path);
}

QString told(const QString& kind, QString text) {
    return kind + u':' +
           text.replace(u'\\', QStringLiteral("\\\\"))
               .replace(u'\t', QStringLiteral("\\t"))
               .replace(u'\n', QStringLiteral("\\n"))
               .replace(u'\r', QStringLiteral("\\r"));
}

QString line(const QString& table, QStringList fields) {
    for (QString& field : fields) {
        const qsizetype equals = field.indexOf(u'=');
        field = field.left(equals).toLower() + field.mid(equals);
    }
    fields.sort();
    return table.toLower() + u'\t' + fields.join(u'\t');
}

QStringList expectedLines(const std::function<QString(const QString&)>& stored) {
    QStringList lines;
    const QStringList all = QString::fromUtf8(files::read(QStringLiteral(TVK_OLD_ROWS)))
                                .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& row : all) {
        QStringList fields = row.split(u'\t');
        const QString table = fields.takeFirst();
        for (QString& field : fields)
            if (const qsizetype at = field.indexOf(u"=memo:") + 1; at > 0)
                field = field.left(at) +
                        told(QStringLiteral("memo"), stored(untold(field.mid(at + 5))));
        if (store::findTable(table) != nullptr)
            lines += line(table, fields);
    }
    lines.sort();
    return lines;
}

QByteArray encoded(QByteArray file) {
    constexpr quint32 key = 0x5eb10d1e;
    scrambleHeader(file);
    qToLittleEndian(key, file.data() + keyAt);
    scrambleHeader(file);
    for (qsizetype page = 1; page * pageSize < file.size(); ++page) {
        std::array<uchar, 4> ofPage{};
        qToLittleEndian(key ^ static_cast<quint32>(page), ofPage.data());
        rc4(ofPage, file.data() + page * pageSize, pageSize);
    }
    return file;
}

QByteArray withPassword(QByteArray file) {
    scrambleHeader(file);
    for (qsizetype at = passwordAt; at < passwordAt + 20; ++at)
        file[at] = static_cast<char>(file[at] ^ static_cast<char>(at));
    scrambleHeader(file);
    return file;
}

} // namespace sample
