#pragma once

#include "store/DataSource.h"
#include "store/ProgramFolder.h"

#include <QHash>
#include <QString>
#include <QStringView>

#include <memory>

namespace clientcard {

/// The data sources of one card, by their names. They end with the card.
class CardData {
  public:
    /// Points all data sources to the database; nothing is opened yet.
    /// @param engine must outlive the card
    CardData(store::DBEngine& engine, const store::ProgramFolder& folder);

    /// Opens the client's rows in all tables. `datZaklad` is opened whole and stands on the client,
    /// or on its first row when nobody has that key. @throws store::EngineError
    void otvorZaznamy(const QString& key);
    /// Opens the code-lists and the list of employees. @throws store::EngineError
    void otvorCiselniky();

    /// Leaves the row of a source, which writes what is changed in it, reads the source anew and
    /// stands on the client's row, or on the first when the client is not there (NoMatch).
    /// @throws store::EngineError
    static void reopenOn(store::DataSource& source, const QString& recordSource,
                         const QString& key);
    /// Leaves the rows of the client, which writes what is changed in them.
    /// @throws store::EngineError
    void leaveClient() const;
    /// Drops what is not written of the client. Nothing is read, so it can't fail.
    void dropClient() const;

    /// How many rows of a table are written for a client. @throws store::EngineError
    int recordsIn(QStringView table, const QString& key) const;
    /// The latest date in a column of a client's rows, empty without one. @throws
    /// store::EngineError
    QString latestIn(QStringView column, QStringView table, const QString& key) const;

    /// @param name one of the names of the sources; another one is a fault of the program
    store::DataSource& source(QStringView name) const;
    store::DataSource& datZaklad() const { return *datZaklad_; }
    store::DataSource& datMemo() const { return *datMemo_; }

  private:
    void open(QStringView name, const QString& recordSource) const;

    QHash<QString, std::shared_ptr<store::DataSource>> sources_;
    store::DataSource* datZaklad_ = nullptr;
    store::DataSource* datMemo_ = nullptr;
};

/// The criterion by which a client's row is found.
QString keyCriterion(const QString& key);

/// The two kinds of placement, as the column `akronym` tells them apart.
inline constexpr QStringView schools = u"VYCH";
inline constexpr QStringView counselling = u"TVK";

/// The record sources that give a client's records, and the codes of facilities.
QString placementsOf(const QString& key, QStringView akronym);
QString placementCodes(QStringView akronym);
QString siblingsOf(const QString& key);
QString datedRecordsOf(QStringView table, const QString& key);

} // namespace clientcard
