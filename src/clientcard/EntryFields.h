#pragma once

#include "clientcard/EntryTable.h"
#include "forms/EntryField.h"
#include "forms/FieldEvents.h"

#include <array>

class QWidget;

namespace clientcard {

class CardFrame;
class ImpairmentFields;
class Pickers;

/// What the rules of a field found.
enum class Checked {
    Passed,
    Failed, ///< The user wants to correct it.
    Ended,  ///< The rule has sent the focus elsewhere; nothing more is to be done.
};

/// The array `textKrz` with its four handlers. A field's rules are run once however it is left: by
/// a key, which marks the field, or else when the focus has gone.
class EntryFields : public forms::FieldEvents {
  public:
    /// The fields belong to the parent until they are laid out.
    EntryFields(CardFrame& frame, Pickers& pickers, QWidget* parent);

    forms::EntryField& field(int element) const { return *fields_.at(std::size_t(element)); }
    QString text(int element) const { return field(element).text(); }

    /// The impairments whose entry fields are elements of the array; must outlive it.
    void setImpairments(ImpairmentFields& client, ImpairmentFields& mother,
                        ImpairmentFields& father);

    void gotFocus(const forms::Control& control) override;
    void keyPress(const forms::Control& control, QChar& character) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    void change(const forms::Control& control) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;

  private:
    Checked check(int element);
    bool isOwnNumber(int element) const;
    Checked checkCatalogueNumber(int element);
    Checked checkParentsYear(int element);
    void walk(int element, int key);
    int next(int element) const;
    int previous(int element) const;
    ImpairmentFields& impairmentsOf(int element) const;

    CardFrame& frame_;
    Pickers& pickers_;
    std::array<forms::EntryField*, 57> fields_{};
    std::array<ImpairmentFields*, 3> impairments_{};
};

} // namespace clientcard
