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
    /// Goes to the picker of a field and opens it; nothing for a field without one.
    void openFor(int element);
    /// Something else was typed into a field than was picked for it.
    void dropPick(int element);
    /// Looks a field's text up in its code-list. @return true to keep the focus
    bool lookUp(int element);
    /// Shows beside each field what it means. @throws store::EngineError
    void showMeanings();

  private:
    CodePick* pickOf(int element) const;

    std::vector<std::unique_ptr<CodePick>> picks_;
};

} // namespace clientcard
