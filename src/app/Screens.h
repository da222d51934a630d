#pragma once

#include "mainwindow/Surroundings.h"

namespace app {

/// Opens one of the main window's screens and waits until it is done.
void openScreen(mainwindow::Screen screen, mainwindow::FrmUvod& window);

} // namespace app
