#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

class QWidget;

namespace forms {
class DropDown;
class EntryField;
} // namespace forms

namespace store {
class DataSource;
}

/// The tests that all entry fields share. They read a field, may rewrite or empty it, and ask the
/// user in a box. The answer is whether the focus is to stay in the field: true only when the user
/// has chosen to correct the value. A value that the user lets stand passes, even if it is wrong.
namespace modKontrola {

/// The number that a text begins with: leading blanks are skipped, reading stops at the first
/// character that is no digit; 0 without a digit. Numbers beyond qint64 give its greatest value.
qint64 Val(QStringView text);

/// Asks whether the value is to be corrected: the message followed by " Opraviť ?".
bool opravit(QWidget* parent, const QString& message);

/// Enter acts as Tab and is consumed; other keys are left alone.
void enterNaTab(int& key);

/// The birth number: ten digits that 11 divides. A right one puts the sex into `sexHolder` and
/// `sex`, and the date of birth into `date` if that is empty.
bool kontrolaRodCis(forms::EntryField& number, forms::EntryField& sex, forms::DropDown& sexHolder,
                    forms::EntryField& date);

/// A date as day, month, year between dots; takes out blanks and completes a year of two digits.
/// Knows nothing of the lengths of months.
bool kontrolaDatum(forms::EntryField& date);

/// The look-up in a code-list. With a pick in the list, the picked row is written into the field;
/// otherwise the field's text is looked for, as a name in a fresh query of the table, or as a code
/// in the rows of the source as they are.
/// @throws EngineError
bool kontrolaCiselnik(forms::DropDown& list, forms::EntryField& field, store::DataSource& source,
                      bool podlaNazvu, const QString& table, const QString& codeColumn,
                      const QString& nameColumn);

/// The sex: "M" or "Z", made of the text's first letter.
bool kontrolaPohlavie(forms::EntryField& sex);

/// One impairment. Only a code that is taken already is refused, and only when duplicates matter;
/// the words of the box say more than is tested.
/// @param taken the codes that the person has
bool kontrolaPostih(forms::EntryField& code, bool kontrolovatDuplicity, const QStringList& taken);

} // namespace modKontrola
