#pragma once

#include "forms/FieldEvents.h"

#include <array>

class QWidget;

namespace forms {
class DropDown;
class EntryField;
} // namespace forms

namespace clientcard {

class CardFrame;
class EntryFields;
struct PickerRow;

/// The code-list pickers `dbcvolby`. A picker only writes into the field that it serves; what the
/// field holds is what is saved.
class Pickers : public forms::FieldEvents {
  public:
    static constexpr int count = 10;

    Pickers(CardFrame& frame, QWidget* parent);
    /// The fields that the pickers write into; must be set before the first event.
    void serve(EntryFields& fields) { fields_ = &fields; }

    forms::DropDown& picker(int index) const { return *pickers_.at(std::size_t(index)); }
    /// Goes to the picker of a field and opens it; nothing for a field without one.
    void openFor(int element);
    /// Something was typed into a field: what was picked for it before counts no longer.
    void dropPick(int element);
    /// Looks a field's text up in its code-list. @return true to keep the focus
    bool lookUp(int element, forms::EntryField& field, bool byName);
    /// Shows beside each code what it means. @throws store::EngineError
    void showMeanings();

    void click(const forms::Control& control, forms::Area area) override;
    void change(const forms::Control& control) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;

  private:
    forms::EntryField& fieldOf(int index) const;
    void take(int index, int characters) const;
    void showMeaning(int index);

    CardFrame& frame_;
    EntryFields* fields_ = nullptr;
    std::array<forms::DropDown*, count> pickers_{};
};

} // namespace clientcard
