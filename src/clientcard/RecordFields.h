#pragma once

#include "card/RuledFields.h"
#include "clientcard/RecordTable.h"

#include <QString>

namespace store {
class DataSource;
}

namespace clientcard {

class CardFrame;
class RecordKind;

/// The entry fields of a record: what they check beside their table.
class RecordFields : public card::RuledFields {
  public:
    RecordFields(CardFrame& frame, const RecordRow& row, QWidget* parent);

    /// The checks that are not told in the table; must be set before the first event.
    void setKind(RecordKind& kind) { kind_ = &kind; }

  protected:
    card::Checked checkOwn(int index) override;
    forms::DropDown* pickOf(int index) const override;
    void leftUnchecked(int index) override;

  private:
    bool dateIsTaken(const QString& date);
    bool nameIsTaken(const QString& name);
    bool anotherHas(const QString& criterion) const;

    CardFrame& frame_;
    const RecordRow& row_;
    store::DataSource& source_;
    RecordKind* kind_ = nullptr;
};

} // namespace clientcard
