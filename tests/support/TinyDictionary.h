#pragma once

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace support {

using namespace Qt::StringLiterals;

/// A folder with a dictionary of few words, in the encoding that most of the old ones have.
struct TinyDictionary {
    QTemporaryDir folder;

    /// @param words a word a line
    explicit TinyDictionary(const QString& words, const char* encoding = "ISO8859-2") {
        write(u"sk_SK.aff",
              u"SET %1\nTRY žiakyčín\nREP 1\nREP z ž\n"_s.arg(QLatin1String(encoding)), encoding);
        write(u"sk_SK.dic", u"%1\n%2\n"_s.arg(words.count(u'\n') + 1).arg(words), encoding);
    }
    QString path(QStringView name) const { return folder.filePath(name.toString()); }
    void write(QStringView name, const QString& text, const char* encoding = "UTF-8") const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QStringEncoder(encoding).encode(text));
    }
    QByteArray read(QStringView name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace support
