#include "spelling/OwnWords.h"

#include "store/sql/TextOrder.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>

namespace spelling {

namespace {

/// A file of another kind is not read to its end. These are a hundred thousand words.
constexpr qint64 largest = 2'000'000;

void sort(QStringList& words) {
    const store::sql::TextOrder order;
    std::ranges::sort(words, [&order](const QString& left, const QString& right) {
        const int way = order.compare(left.toStdString(), right.toStdString());
        return way != 0 ? way < 0 : left < right;
    });
}

} // namespace

QStringList OwnWords::read() const {
    QFile file(path_);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly) || file.size() > largest)
        throw store::EngineError(store::ErrorNumber::CannotOpen,
                                 QStringLiteral("Súbor sa nedá čítať."), path_);
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(file.readAll());
    if (utf8.hasError() || text.contains(QChar::Null))
        throw store::EngineError(store::ErrorNumber::UnrecognizedFile,
                                 QStringLiteral("Súbor nie je zoznam slov."), path_);
    QStringList words;
    for (const QString& line : text.split(u'\n')) {
        if (!line.trimmed().isEmpty())
            words.append(line.trimmed());
    }
    return words;
}

void OwnWords::add(const QString& word) const {
    QStringList words = read();
    if (words.contains(word))
        return;
    words.append(word);
    sort(words);
    const QByteArray bytes = (words.join(u'\n') + u'\n').toUtf8();
    QSaveFile file(path_);
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(bytes) != bytes.size() || !file.commit())
        throw store::EngineError(store::ErrorNumber::CannotOpen,
                                 QStringLiteral("Súbor sa nedá zapísať."), path_);
}

} // namespace spelling
