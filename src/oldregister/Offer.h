#pragma once

#include <QString>

class QWidget;

namespace oldregister {

/// Called before the register is opened. When the file under that path is of the old format, the
/// user is asked whether to take it over; a yes does it, with progress and Zrušiť, and shows the
/// report. Files of other kinds are left to those who open them; one of another version of the old
/// format is told.
/// @return false when there is still no register to work with and the user knows it
bool offerTakeOver(const QString& path, QWidget* parent);

} // namespace oldregister
