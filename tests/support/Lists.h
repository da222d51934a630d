#pragma once

#include "store/Value.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

namespace support {

/// The lines of a list in the folder "data" beside the test, each parted at its tabs. A control
/// sign within a part is written as its picture: ␉, ␍, ␊.
inline QList<QStringList> linesOf(const QString& list) {
    QFile file(QStringLiteral(TVK_TEST_DATA "/") + list);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << list.toStdString();
    QList<QStringList> lines;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        lines << line.split(u'\t');
        for (QString& part : lines.last())
            for (QChar& sign : part)
                if (sign >= u'␀' && sign < u'␠')
                    sign = QChar(sign.unicode() - u'␀');
    }
    EXPECT_FALSE(lines.isEmpty()) << list.toStdString();
    return lines;
}

/// A value as lists write it: null, true, false, a number, 2007-09-03, 2007-09-03T10:15, or any
/// other text; 'in quotes' for a text that would be one of these.
inline store::Value valueOf(const QString& written) {
    bool isNumber = false;
    const double number = written.toDouble(&isNumber);
    if (written == u"null")
        return {};
    if (written == u"true" || written == u"false")
        return written == u"true";
    if (isNumber)
        return written.contains(u'.') ? store::Value(number) : store::Value(written.toLongLong());
    if (const auto moment = QDateTime::fromString(written, Qt::ISODate); moment.isValid())
        return written.contains(u'T') ? store::Value(store::DateTime{moment.date(), moment.time()})
                                      : store::Value(moment.date());
    const bool isQuoted = written.startsWith(u'\'');
    return isQuoted ? written.mid(1, written.size() - 2) : written;
}

} // namespace support
