#pragma once

#include "forms/Words.h"

#include <array>

class QRadioButton;
class QWidget;

namespace store {
class Recordset;
}

namespace clientcard {

class EntryFields;

/// The options `optKrz`: own or step mother, own or step father, and whom the legal representative
/// is filled from.
class ParentOptions {
  public:
    static constexpr int count = 7;

    ParentOptions(EntryFields& fields, QWidget* parent);
    QRadioButton* option(int index) const { return options_.at(std::size_t(index)); }

    /// Sets the options from the current row (`nastavVolby`). A representative who is neither
    /// parent has none. @throws store::EngineError
    void nastavVolby(store::Recordset& client);
    /// Puts the flags into the open row. @throws store::EngineError
    void put(store::Recordset& client) const;

    /// What is chosen and was not by nastavVolby().
    void addTyped(forms::Words& words) const;
    /// Chooses it, and copies nothing.
    void enter(const forms::Words& words);
    /// The flags are not those of the row. @throws store::EngineError
    bool differ(store::Recordset& client) const;

  private:
    void fillRepresentative(int option);
    void forgetRepresentative();

    EntryFields& fields_;
    std::array<QRadioButton*, count> options_{};
    std::array<bool, count> before_{};
};

} // namespace clientcard
