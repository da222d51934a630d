#pragma once

#include <memory>
#include <vector>

class QWidget;

namespace forms {
class DropDown;
}

namespace clientcard {

class CardFrame;
class CodePick;
class EntryFields;

/// The code-list pickers `dbcvolby`, each beside the element of `textKrz` that it serves.
class Pickers {
  public:
    Pickers();
    ~Pickers();

    /// Makes the pickers; must come before the first event.
    void serve(CardFrame& frame, EntryFields& fields, QWidget* parent);

    forms::DropDown& picker(int index) const;
    /// The picker of an element of `textKrz`; null for one without.
    forms::DropDown* pickOf(int element) const;
    /// Looks a field's text up in its code-list. @return true to keep the focus
    bool lookUp(int element);
    /// Shows beside each field what it means. @throws store::EngineError
    void showMeanings();

  private:
    std::vector<std::unique_ptr<CodePick>> picks_;
};

} // namespace clientcard
