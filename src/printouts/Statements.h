#pragma once

#include <QString>
#include <QStringView>

/// The statements that print-outs put into stored queries. `key` is the client's, as it is stored.
namespace printouts {

QString basicData(const QString& key);
QString parents(const QString& key);
QString siblings(const QString& key);
/// @param column of `k_memo`
QString memo(QStringView column, const QString& key);
/// Only placements whose code the list of facilities knows.
QString placements(const QString& key);
/// Only examinations, and records of care, whose worker the list of employees knows.
QString examinations(const QString& key);
QString careRecords(const QString& key);
/// Reads the stored query of changes as it stands; it must give the client's key.
QString changes(const QString& key);
QString allClients();
/// The client's rows of `records` whose `code` is not among the `listCode` of `list`.
QString recordsWithoutName(QStringView records, QStringView code, QStringView list,
                           QStringView listCode, const QString& key);

} // namespace printouts
