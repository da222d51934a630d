#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

/// The invented register of the old format, and the list of what lies in it.
namespace sample {

inline const QString path = QStringLiteral(TVK_OLD_SAMPLE);

QByteArray bytes();
/// A value as the list tells it: its kind and its text, with line ends and tabs escaped.
QString told(const QString& kind, QString text);
/// A row as the list tells it, whatever the order of its columns and the case of their names.
QString line(const QString& table, QStringList fields);
/// The rows of the list that belong to a register, in order of text.
/// @param stored what the register keeps of a long text
QStringList expectedLines(const std::function<QString(const QString&)>& stored);

/// The pages of a file but the first, encoded as the old program encodes a whole file.
QByteArray encoded(QByteArray file);
/// The file with a password in its header.
QByteArray withPassword(QByteArray file);

} // namespace sample
