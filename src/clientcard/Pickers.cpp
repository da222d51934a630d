#include "clientcard/Pickers.h"

#include "clientcard/CardTables.h"
#include "clientcard/CodePick.h"
#include "clientcard/EntryFields.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"

namespace clientcard {

namespace {

CodePickRow codePickRow(int index, const PickerRow& row) {
    return {.name = u"dbcvolby",
            .index = index,
            .source = row.dataSource,
            .table = row.table,
            .shownColumn = row.shownColumn,
            .codeColumn = u"kod",
            .nameColumn = u"nazov"};
}

/// Takes the first characters of its text, more or fewer while the user still moves in the list.
class Picker : public CodePick {
  public:
    Picker(CardFrame& frame, int index, EntryFields& fields, QWidget* parent)
        : Picker(frame, index, pickerTable()[std::size_t(index)], fields, parent) {}

    void change(const forms::Control& /*control*/) override {
        if (row_.takenOnChange > 0)
            take(row_.takenOnChange);
        else
            forms::moveFocus(&field());
    }

  protected:
    void take() override { take(row_.taken); }

  private:
    Picker(CardFrame& frame, int index, const PickerRow& row, EntryFields& fields, QWidget* parent)
        : CodePick(frame, codePickRow(index, row), fields.field(row.element), parent), row_(row) {}

    void take(int characters) { field().setText(pick().text().left(characters)); }

    const PickerRow& row_;
};

} // namespace

Pickers::Pickers() = default;
Pickers::~Pickers() = default;

void Pickers::serve(CardFrame& frame, EntryFields& fields, QWidget* parent) {
    for (int i = 0; i < int(pickerTable().size()); ++i)
        picks_.push_back(std::make_unique<Picker>(frame, i, fields, parent));
}

forms::DropDown& Pickers::picker(int index) const {
    return picks_.at(std::size_t(index))->pick();
}

forms::DropDown* Pickers::pickOf(int element) const {
    const int index = entryTable()[std::size_t(element)].picker;
    return index < 0 ? nullptr : &picker(index);
}

bool Pickers::lookUp(int element) {
    return picks_.at(std::size_t(entryTable()[std::size_t(element)].picker))->lookUp();
}

void Pickers::showMeanings() {
    for (const auto& pick : picks_)
        pick->showMeaning();
}

} // namespace clientcard
