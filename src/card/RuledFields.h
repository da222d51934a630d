#pragma once

#include "card/FieldTable.h"
#include "forms/EntryField.h"
#include "forms/FieldEvents.h"

#include <vector>

class QWidget;

namespace forms {
class DropDown;
class FocusGuard;
} // namespace forms

namespace card {

class CalendarNote;

/// What the check of a field found.
enum class Checked {
    Passed,
    Failed, ///< The user wants to correct it.
    Ended,  ///< The check has sent the focus elsewhere; nothing more is to be done.
};

/// The entry fields of a screen, ruled by a table. A field is checked once however it is left: by a
/// key, which marks the field, or else when the focus has gone. A screen derives from it and adds
/// the checks that are its own.
class RuledFields : public forms::FieldEvents {
  public:
    /// The fields belong to the parent until they are laid out.
    /// @param set must outlive the fields
    RuledFields(QWidget& window, forms::FocusGuard& guard, const FieldSet& set,
                std::vector<FieldRow> rows, QWidget* parent);

    const std::vector<forms::EntryField*>& fields() const { return fields_; }
    forms::EntryField& field(int index) const { return *fields_.at(std::size_t(index)); }
    QString text(int index) const { return field(index).text(); }
    /// The line that names dates which are none, to be put in its place.
    CalendarNote& calendarNote() const { return *calendarNote_; }

    /// Where Up leads from the first field, and Down from the last; null to stay there.
    void setNeighbours(QWidget* above, QWidget* below);
    /// All but those that open apart.
    void enable(bool enabled, const QString& whyNot);

    void gotFocus(const forms::Control& control) override;
    void keyPress(const forms::Control& control, QChar& character) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    void change(const forms::Control& control) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;

  protected:
    /// The check that the screen adds to those of the table; run when the others have passed.
    virtual Checked checkOwn(int /*index*/) { return Checked::Passed; }
    /// The drop-down that belongs to a field; null for a field without one.
    virtual forms::DropDown* pickOf(int /*index*/) const { return nullptr; }
    /// The field was left unchecked: towards a pick, or because a key has checked it before.
    virtual void leftUnchecked(int /*index*/) {}
    /// The walk by keys leads no further than this field, by the table.
    virtual void walkEnds(int /*index*/, Way /*way*/) const {}

  private:
    const FieldRow& rowOf(int index) const { return rows_[std::size_t(index)]; }
    void tidy(int index, bool byKey) const;
    bool isRefused(int index) const;
    Checked check(int index, bool byKey);
    forms::Leave leave(const forms::Control& control, const forms::Control& now);
    void openPick(int index) const;
    void walk(int index, int key) const;
    void step(int index, Way way) const;

    QWidget& window_;
    const FieldSet& set_;
    const std::vector<FieldRow> rows_;
    std::vector<forms::EntryField*> fields_;
    CalendarNote* calendarNote_;
    QWidget* above_ = nullptr;
    QWidget* below_ = nullptr;
};

} // namespace card
