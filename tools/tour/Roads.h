#pragma once

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
/// Damages the invented register first.
void walkDataCheck(Guide& guide, mainwindow::FrmUvod& window);

} // namespace tour
