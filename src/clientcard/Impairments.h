#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <span>

namespace clientcard {

/// The nine impairments by their codes 1 to 9, as the pickers show them ("1 ¦ syndróm autizmu").
std::span<const QString> impairmentTexts();
/// Rows of a dominant picker: none, then the nine texts. The row's number is the code.
QStringList dominantRows();

/// The stored string has a numeric value other than 0.
bool hasImpairment(const QString& stored);

/// Whose impairments they are. The letter is the one that screens pass around.
enum class Person : char16_t { Client = u'K', Mother = u'M', Father = u'O', Sibling = u'S' };

/// The nine slots of a person and the associated picker's list that shrinks as codes are taken.
/// Slot 0 is the dominant code, the others the associated ones in the order of entry. A slot holds
/// the empty text, a blank or a digit.
class Impairments {
  public:
    Impairments();

    /// Fills slots and list from a stored string (`citajPostih`).
    void read(const QString& stored);
    /// The string to be stored: the slots as they are, untrimmed.
    QString joined() const;

    /// Sets the dominant code and drops the associated ones (`nastavDominantne`).
    void setDominant(int code);
    /// Puts a code into the first free associated slot; without one nothing happens (`pridajSek`).
    void addAssociated(const QString& code);
    /// Drops the associated codes and gives them back to the list (`vymazSek`, `naplnSek`).
    void clearAssociated();
    /// As clearAssociated, and takes the dominant's own code off the list again.
    void resetAssociated();
    /// Takes a row off the associated list; the row at 0 stays (`odoberSek`).
    void removeRow(qsizetype row);
    /// Takes the row of a code off the associated list (`odoberKod`).
    void removeCode(const QString& code);

    const std::array<QString, 9>& slotTexts() const { return slots_; }
    const QStringList& associatedRows() const { return rows_; }
    bool hasDominant() const;

  private:
    void fillRows();

    std::array<QString, 9> slots_;
    QStringList rows_;
};

} // namespace clientcard
