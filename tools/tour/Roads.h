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
void walkTableOne(Guide& guide, mainwindow::FrmUvod& window);
void walkClientList(Guide& guide, mainwindow::FrmUvod& window);

/// Runs what shows a preview, takes its picture and leaves its PDF under the report's name.
void lookAtPrint(Guide& guide, const QString& picture, const QString& report,
                 const std::function<void()>& print);

} // namespace tour
