#pragma once

#include <QString>

#include <functional>

namespace mainwindow {
class FrmUvod;
}

namespace tour {

class Guide;

/// The main roads through the program, each from a window without a card open back to it.
void walkLists(Guide& guide);
/// Enters the first employee of an empty register.
void walkNewEmployee(Guide& guide);
/// Enters the first client of an empty register, with a record of care.
void walkNewClient(Guide& guide);
void walkClientCard(Guide& guide);
void walkSchoolYear(Guide& guide);
/// Types Tables IV and V into an empty register.
void walkEntryForms(Guide& guide);
/// Prints the five tables of the return one by one.
void walkTables(Guide& guide, mainwindow::FrmUvod& window);
void walkWholeReturn(Guide& guide, mainwindow::FrmUvod& window);
void walkClientList(Guide& guide, mainwindow::FrmUvod& window);
/// Damages the invented register first.
void walkDataCheck(Guide& guide, mainwindow::FrmUvod& window);

/// Runs what shows a preview, takes its picture and leaves its PDF, both under that name.
void lookAtPrint(Guide& guide, const QString& name, const std::function<void()>& print);
/// The same with an entry of the menu.
void lookAtPrint(Guide& guide, const QString& name, mainwindow::FrmUvod& window, const char* entry);

} // namespace tour
