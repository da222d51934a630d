#pragma once

#include "clientcard/Impairments.h"
#include "forms/FieldEvents.h"
#include "forms/Words.h"

#include <QString>

#include <array>

class QGridLayout;
class QLabel;
class QWidget;

namespace forms {
class DropDown;
class EntryField;
class FocusGuard;
} // namespace forms

namespace clientcard {

/// Which controls show a person's impairments, and what differs from person to person.
struct ImpairmentTraits {
    Person person;
    /// The slots' array, as `textPosK`.
    const char16_t* slotArray;
    const char16_t* dominantArray;
    int dominantElement;
    int associatedElement;
    const char16_t* dominantCaption;
    const char16_t* associatedCaption;
    const char16_t* slotsCaption;
    const char16_t* toolTip;
    /// Pickers that can't be used are hidden, not merely disabled.
    bool hidesPicks;
    /// The dominant code typed anew leaves the associated ones as they are.
    bool sparesOnRepeat;
    /// A typed 0 clears the dominant code and with it the associated ones; else only the picker
    /// does.
    bool zeroClears;
    /// What, typed into the associated field, clears the associated codes.
    char16_t clearing;
    /// What the codes are called outside their frame.
    const char16_t* wordsCaption;
};

/// Client, mother, father and sibling.
const ImpairmentTraits& impairmentTraits(Person person);

/// The slots and the two pickers of a person, with the two entry fields that the pickers stand
/// beside. The slots hold the state from one move to a row to the save.
class ImpairmentFields : public forms::FieldEvents {
  public:
    /// @param dominant, associated entry fields whose own events are their screen's affair
    ImpairmentFields(const ImpairmentTraits& traits, forms::EntryField& dominant,
                     forms::EntryField& associated, QWidget* parent, forms::FocusGuard& guard);

    /// The two pickers side by side, or one below the other.
    enum class Shape { Wide, Narrow };
    /// Fills an empty grid.
    void layOut(QGridLayout& grid, Shape shape) const;

    /// Opens the entry, or closes it as a whole. It is open at first.
    void setOpen(bool open);
    /// Shows a stored string (`citajPostih`) and enables the associated entry by it
    /// (`nastavPristup`).
    void show(const QString& stored);
    QString joined() const { return state_.joined(); }
    /// What is entered, by the names of its fields: the codes when they are not those last shown,
    /// and what isPending(). Reads nothing.
    /// @param column the one that takes the codes
    void addTyped(forms::Words& words, const QString& column) const;
    /// Puts it into the fields again.
    void enter(const forms::Words& words, const QString& column);
    /// A digit stands in one of the two fields.
    bool isPending() const;

    /// Takes over the digits of isPending() where nothing may be asked: when the user goes on to a
    /// picker, or saves. A code that is there already stays in its field, to be asked about later.
    void takePending();
    /// Takes over what was typed into the dominant field.
    void takeDominant();
    /// Takes over what was typed into the associated field. @return true to keep the focus
    bool takeAssociated();

    void click(const forms::Control& control, forms::Area area) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;

    forms::DropDown& dominantPick() const { return *dominantPick_; }
    forms::DropDown& associatedPick() const { return *associatedPick_; }
    /// Says what the digits of the slots mean; it can be reached and read but not changed.
    QWidget& inWords() const;

  private:
    void showCodes(const QString& codes);
    void nastavDominantne(int code);
    void takePick(const forms::Control& control);
    void pickDominant(int row);
    void pickAssociated(int row);
    void enableAssociated(bool enabled);
    void enablePick(forms::DropDown& pick, QLabel& caption, bool enabled,
                    const QString& whyNot) const;
    QString whyNotAssociated() const;
    void makeSlots(QWidget* parent);
    void showSlots();

    const ImpairmentTraits& traits_;
    forms::EntryField& dominant_;
    forms::EntryField& associated_;
    forms::DropDown* dominantPick_;
    forms::DropDown* associatedPick_;
    forms::EntryField* words_;
    QLabel* dominantCaption_;
    QLabel* associatedCaption_;
    bool isOpen_ = true;
    bool isImpaired_ = false;
    QString stored_;
    std::array<forms::EntryField*, 9> slots_{};
    Impairments state_;
};

} // namespace clientcard
