#pragma once

#include "card/RuledFields.h"
#include "clientcard/EntryTable.h"

#include <array>

namespace clientcard {

class CardFrame;
class ImpairmentFields;
class Pickers;
class SexPick;

/// The array `textKrz`: what its elements check beside their table.
class EntryFields : public card::RuledFields {
  public:
    /// The fields belong to the parent until they are laid out.
    EntryFields(CardFrame& frame, Pickers& pickers, QWidget* parent);

    /// The picks that stand beside elements of the array; must outlive it.
    void setPicks(SexPick& sex, ImpairmentFields& client, ImpairmentFields& mother,
                  ImpairmentFields& father);

  protected:
    void gotFocus(const forms::Control& control) override;
    void change(const forms::Control& control) override;
    card::Checked checkOwn(int element) override;
    forms::DropDown* pickOf(int element) const override;
    void leftUnchecked(int element) override;
    void walkEnds(int element, card::Way way) const override;

  private:
    bool isOwnNumber() const;
    card::Checked checkCatalogueNumber();
    card::Checked checkParentsYear(int element);
    ImpairmentFields& impairmentsOf(int element) const;

    CardFrame& frame_;
    Pickers& pickers_;
    SexPick* sexPick_ = nullptr;
    std::array<ImpairmentFields*, 3> impairments_{};
    /// Enters pressed at the end of the walk, in the field in focus, without a digit before.
    mutable int idleEnters_ = 0;
};

} // namespace clientcard
