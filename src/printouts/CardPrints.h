#pragma once

#include "printing/Printing.h"

#include <QString>

class QDate;
class QWidget;

namespace printouts {

/// Of whose card what is printed.
struct PrintedCard {
    /// The client's key.
    QString key;
    /// The record source of the visits that the card shows.
    QString visits;
    /// Something is typed into the card that is not in the file.
    bool isChanged = false;
};

/// The operation behind `cmdTlac`: puts the client's statement into the stored query of a tab and
/// shows its report.
/// @param tab from 0 to 13, as the card numbers them
/// @throws store::EngineError 3265 when the stored query is missing, 3061 when that of the changes
/// does not give the client's key, 3021 when the client has gone, and what reading throws
void printTab(const printing::PrintTools& tools, int tab, const PrintedCard& card,
              const QDate& today, QWidget* parent);

/// The operation behind `mniZozKlient`: shows the list of all clients. @throws store::EngineError
void printClientList(const printing::PrintTools& tools, const QDate& today, QWidget* parent);

} // namespace printouts
