#pragma once

#include <QByteArray>
#include <QString>

/// The invented register of the old format, and what has to come out of it.
namespace sample {

inline const QString path = QStringLiteral(TVK_OLD_SAMPLE);
/// Its tables as CSV.
inline const QString tables = QStringLiteral(TVK_OLD_TABLES);

QByteArray bytes();
/// Expects a folder to hold the tables of the sample's register as CSV.
void expectTables(const QString& folder);

/// The pages of a file but the first, encoded as the old program encodes a whole file.
QByteArray encoded(QByteArray file);
/// The file with a password in its header.
QByteArray withPassword(QByteArray file);

} // namespace sample
