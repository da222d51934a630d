#pragma once

#include <QString>

/// What the main window and the cards share. All of it belongs to the one thread of windows.
namespace modKontrola {

/// What a card is to do: 1 a new record, 2 an edit of the record named by `gIdKod`, 0 nothing.
inline quint8 gAkcia = 0;
/// Key of the client or employee being edited, empty for a new one.
inline QString gIdKod;
/// " : ", first name, two blanks, surname, as stored; empty for a new record. Cards append it to
/// their captions and to delete questions.
inline QString gMenoKlienta;

/// Makes the next card one on that record.
inline void editRecord(const QString& key, const QString& firstName, const QString& surname) {
    gIdKod = key;
    gMenoKlienta = QStringLiteral(" : ") + firstName + QStringLiteral("  ") + surname;
    gAkcia = 2;
}

/// Set by Esc in a drop-down pick, so that the next look-up in a code-list clears it and leaves the
/// field alone.
inline bool gZVyberu = false;
/// Tested and never assigned.
inline qint16 gZoznam = 0;
/// Set at the end of the main window's load.
inline bool gSpusteny = false;

} // namespace modKontrola
