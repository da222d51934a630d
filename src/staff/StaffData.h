#pragma once

#include "store/DataSource.h"
#include "store/ProgramFolder.h"

#include <QString>
#include <QStringView>

namespace staff {

/// The data sources of one employee's card. They end with the card.
class StaffData {
  public:
    /// Points all of them to the database and opens the list of functions.
    /// @param engine must outlive the card
    /// @throws store::EngineError
    StaffData(store::DBEngine& engine, const store::ProgramFolder& folder);

    /// Opens the row of the employee with the key; none for an empty one.
    /// @throws store::EngineError
    void openEmployee(const QString& key);

    /// @param name that of one of the sources; another one is a fault of the program
    store::DataSource& source(QStringView name);

    store::DataSource datPsych;
    store::DataSource datFunkc;
    store::DataSource datVysetrenie;
    store::DataSource datZaznam_spc;
    store::DataSource datZaznam_zmeny;
};

} // namespace staff
