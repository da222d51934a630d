#include "clientcard/EntryTabs.h"

#include "card/Actions.h"
#include "card/FieldKeys.h"
#include "card/TextRules.h"
#include "clientcard/CardData.h"
#include "clientcard/EntryFields.h"
#include "clientcard/EntryLayout.h"
#include "clientcard/ImpairmentFields.h"
#include "clientcard/ParentOptions.h"
#include "clientcard/Pickers.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/SexPick.h"
#include "forms/Binding.h"
#include "forms/DropDown.h"
#include "forms/FocusGuard.h"
#include "forms/Guard.h"

#include <QDialog>

namespace clientcard {

namespace {

/// Columns of the row that no field is bound to.
struct ImpairmentColumn {
    const char16_t* column;
    Person person;
    krz::Element dominant;
    krz::Element associated;
};

constexpr std::array<ImpairmentColumn, 3> impairmentColumns = {{
    {u"postih", Person::Client, krz::dominantK, krz::associatedK},
    {u"matpos", Person::Mother, krz::dominantM, krz::associatedM},
    {u"otepos", Person::Father, krz::dominantO, krz::associatedO},
}};

class EntryTabs : public TabFamily, public KeyFields {
  public:
    explicit EntryTabs(CardFrame& frame);

    QWidget* makePage(int tab, QWidget* parent) override;
    void turnedTo(int tab) override { focusElement(tab == 0 ? krz::meno : krz::matka); }
    KeyFields* keyFields() override { return this; }
    void focusElement(int element) override { fields_.field(element).setFocus(); }
    bool isChanged() const override;
    forms::Words typedWords() const override;
    void enterWords(const forms::Words& words) override;

    card::Names typed() const override {
        return {fields_.text(krz::priezv), fields_.text(krz::meno)};
    }
    QString catalogueNumber() const override { return fields_.text(krz::katcis); }
    void setKey(const QString& key) override { txtIdKod_->setText(key); }
    void zapisPostih() override;
    void tellMissing(const QString& message) override;
    void passOver(const store::EngineError& error) override { frame_.actions().passOver(error); }

  private:
    store::Recordset& row() const { return frame_.data().datZaklad().Recordset(); }
    bool isOpen() const {
        return frame_.data().datZaklad().isOpen() && row().EditMode() != store::EditState::None;
    }
    static QString columnOf(std::size_t i) {
        return QString::fromUtf16(impairmentColumns[i].column);
    }
    ImpairmentFields makeImpairments(const ImpairmentColumn& of);
    void bindAll();
    void showRow();

    CardFrame& frame_;
    /// Holds the controls until their pages take them.
    QWidget workshop_;
    forms::EntryField* txtIdKod_;
    Pickers pickers_;
    EntryFields fields_;
    ParentOptions options_;
    SexPick sexPick_;
    std::array<ImpairmentFields, 3> impairments_;
    forms::Binding binding_;
};

EntryTabs::EntryTabs(CardFrame& frame)
    : frame_(frame), txtIdKod_(new forms::EntryField(&frame.window())),
      fields_(frame, pickers_, &workshop_), options_(fields_, &workshop_),
      sexPick_(frame.guard(), fields_.field(krz::pohlav), QStringLiteral("cmbPos"), 3,
               QStringLiteral("výber z číselnika"), &workshop_),
      impairments_{makeImpairments(impairmentColumns[0]), makeImpairments(impairmentColumns[1]),
                   makeImpairments(impairmentColumns[2])},
      binding_(frame.data().datZaklad(), forms::Shows::OpenRows) {
    txtIdKod_->setObjectName(QStringLiteral("txtIdKod"));
    txtIdKod_->hide();
    pickers_.serve(frame, fields_, &workshop_);
    fields_.setPicks(sexPick_, impairments_[0], impairments_[1], impairments_[2]);
    bindAll();
    QObject::connect(&frame.data().datZaklad(), &store::DataSource::repositioned, &binding_,
                     [this] { forms::showGuarded(&frame_.window(), [this] { showRow(); }); });
}

ImpairmentFields EntryTabs::makeImpairments(const ImpairmentColumn& of) {
    return {impairmentTraits(of.person), fields_.field(of.dominant), fields_.field(of.associated),
            &workshop_, frame_.guard()};
}

void EntryTabs::bindAll() {
    binding_.bind(*txtIdKod_, QStringLiteral("Idkod"));
    for (std::size_t i = 0; i < entryTable().size(); ++i) {
        const QString column = QString::fromUtf16(entryTable()[i].field.column);
        if (!column.isEmpty())
            binding_.bind(fields_.field(int(i)), column);
    }
}

QWidget* EntryTabs::makePage(int tab, QWidget* parent) {
    const EntryControls controls{fields_,         pickers_,        options_,       impairments_[0],
                                 impairments_[1], impairments_[2], sexPick_.pick()};
    return tab == 0 ? makeBasicPage(controls, parent) : makeParentsPage(controls, parent);
}

/// As with the bound fields, nobody is shown before the row is open.
void EntryTabs::showRow() {
    if (row().EditMode() == store::EditState::None)
        return;
    options_.nastavVolby(row());
    for (std::size_t i = 0; i < impairments_.size(); ++i)
        impairments_[i].show(
            card::trimBlanks(row().Fields(impairmentColumns[i].column).Value().toText()));
    sexPick_.pick().setPick(-1);
    pickers_.showMeanings();
}

void EntryTabs::zapisPostih() {
    options_.put(row());
    // An empty date is Null; the binding gives a date column nothing else for it.
    for (std::size_t i = 0; i < impairments_.size(); ++i) {
        impairments_[i].takePending();
        row().Fields(impairmentColumns[i].column).setValue(impairments_[i].joined());
    }
}

void EntryTabs::tellMissing(const QString& message) {
    card::refuse(frame_.window(), message);
}

bool EntryTabs::isChanged() const {
    if (!isOpen())
        return false;
    const auto differs = [this](std::size_t i) {
        return impairments_[i].isPending() ||
               card::trimBlanks(impairments_[i].joined()) !=
                   card::trimBlanks(row().Fields(columnOf(i)).Value().toText());
    };
    return binding_.dataChanged() || options_.differ(row()) || differs(0) || differs(1) ||
           differs(2);
}

forms::Words EntryTabs::typedWords() const {
    forms::Words words = binding_.typed();
    options_.addTyped(words);
    for (std::size_t i = 0; i < impairments_.size(); ++i)
        impairments_[i].addTyped(words, columnOf(i));
    return words;
}

void EntryTabs::enterWords(const forms::Words& words) {
    binding_.enter(words);
    options_.enter(words);
    for (std::size_t i = 0; i < impairments_.size(); ++i)
        impairments_[i].enter(words, columnOf(i));
    if (isOpen())
        pickers_.showMeanings();
}

} // namespace

std::unique_ptr<TabFamily> makeEntryTabs(CardFrame& frame) {
    return std::make_unique<EntryTabs>(frame);
}

} // namespace clientcard
