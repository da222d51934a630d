#pragma once

#include "clientcard/RecordTable.h"
#include "forms/FieldEvents.h"

#include <QString>

#include <vector>

class QWidget;

namespace forms {
class EntryField;
}

namespace store {
class DataSource;
}

namespace clientcard {

class CardFrame;
class RecordKind;

/// The entry fields of a record with their rules.
class RecordFields : public forms::FieldEvents {
  public:
    RecordFields(CardFrame& frame, const RecordRow& row, QWidget* parent);

    const std::vector<forms::EntryField*>& fields() const { return fields_; }
    forms::EntryField& field(int index) const { return *fields_.at(std::size_t(index)); }
    /// The checks that are not told in the table; must be set before the first event.
    void setKind(RecordKind& kind) { kind_ = &kind; }
    /// Where Up leads from the first field; null to stay there.
    void setAbove(QWidget* above) { above_ = above; }
    void enable(bool enabled);

    void gotFocus(const forms::Control& control) override;
    void keyPress(const forms::Control& control, QChar& character) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    void change(const forms::Control& control) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;

  private:
    const RecordField& rowOf(int index) const { return row_.fields[std::size_t(index)]; }
    void tidy(int index, bool byKey);
    bool holds(int index, bool byKey);
    bool dateIsTaken(forms::EntryField& date);
    bool nameIsTaken(forms::EntryField& name);
    bool anotherHas(const QString& criterion) const;
    bool sparedTowards(const forms::Control& control, const forms::Control& now) const;
    void openPick(int index);
    void walk(int index, int key);
    void goTo(int index);

    CardFrame& frame_;
    const RecordRow& row_;
    store::DataSource& source_;
    std::vector<forms::EntryField*> fields_;
    RecordKind* kind_ = nullptr;
    QWidget* above_ = nullptr;
};

} // namespace clientcard
