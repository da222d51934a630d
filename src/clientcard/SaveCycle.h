#pragma once

#include "card/KeyedRow.h"
#include "clientcard/CardData.h"

#include <QString>

namespace clientcard {

/// What the save cycle reads from the card's fields and writes into them.
class KeyFields : public card::KeyField {
  public:
    virtual QString catalogueNumber() const = 0;
    /// Puts what no field is bound to into the open row: flags, empty dates, impairments.
    virtual void zapisPostih() = 0;
};

/// Why the cycle did not begin; the numbers are those that its callers act on.
enum class SaveResult { Saved = 0, NoFirstName = 1, NoSurname = 2, NoCatalogueNumber = 3 };

/// Writes the open rows of `k_zaklad` and `k_memo`, makes the client's key and moves the rows that
/// hang on it. What one call writes becomes durable as a whole.
///
/// The engine's refusal of the client's row does not stop the cycle, but nothing that hangs on the
/// row is written for a row that is not there: neither a memo row nor another key.
class SaveCycle {
  public:
    SaveCycle(CardData& data, KeyFields& fields)
        : data_(data), fields_(fields), row_(data.datZaklad(), fields) {}

    /// @throws store::EngineError from the steps that are not passed over
    SaveResult zapisZaklad();
    /// Moves all rows that hang on a key. @throws store::EngineError
    void zmenIdKod(const QString& oldKey, const QString& newKey);
    /// Writes the open row of `k_memo`. @throws store::EngineError
    void zapisMemo();
    /// True when another client has the catalogue number. With `gAkcia` 0 nobody has it.
    /// @throws store::EngineError
    bool kon_katCislo(const QString& number) const;

  private:
    void saveExisting();
    void saveNew();

    CardData& data_;
    KeyFields& fields_;
    card::KeyedRow row_;
};

} // namespace clientcard
