#include "card/FieldGrid.h"
#include "card/TextRules.h"
#include "clientcard/CardData.h"
#include "clientcard/ImpairmentFields.h"
#include "clientcard/RecordKind.h"
#include "clientcard/SexPick.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/Metrics.h"
#include "store/EngineError.h"
#include "store/Recordset.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>

namespace clientcard {

namespace {

constexpr int sexPickCharacters = 5;
const QString codesColumn = QStringLiteral("postih");

/// Siblings. Their picks are hidden, not merely disabled, while no record is open.
class SiblingKind : public RecordKind {
  public:
    explicit SiblingKind(const RecordParts& parts);

    forms::DropDown* pickOf(int field) const override;
    void layOutBelow(QBoxLayout& frame) override;
    QWidget* lastStop() const override { return &impairments_.inWords(); }

    void enableInput(bool enabled) override;
    void rowShown(store::Recordset& rows) override;
    void leftUnchecked(int field) override;
    bool holds(int field) override;
    forms::Words typedWords() const override;
    void enterWords(const forms::Words& words) override { impairments_.enter(words, codesColumn); }
    void complete(store::Recordset& rows) override;
    QString recordSource(const QString& key) const override { return siblingsOf(key); }

  private:
    const std::vector<forms::EntryField*>& fields_;
    SexPick sexPick_;
    ImpairmentFields impairments_;
};

SiblingKind::SiblingKind(const RecordParts& parts)
    : fields_(parts.fields),
      sexPick_(parts.frame.guard(), *fields_[sibling::sex], QStringLiteral("cmbSur"), 0,
               QStringLiteral("výber pohlavia"), parts.workshop),
      impairments_(impairmentTraits(Person::Sibling), *fields_[sibling::dominant],
                   *fields_[sibling::associated], parts.workshop, parts.frame.guard()) {
    card::setWidth(sexPick_.pick(), sexPickCharacters);
    card::keepPlace(sexPick_.pick());
    for (const int field : {sibling::dominant, sibling::associated})
        card::setWidth(*fields_[std::size_t(field)], 2);
}

forms::DropDown* SiblingKind::pickOf(int field) const {
    switch (field) {
    case sibling::sex:
        return &sexPick_.pick();
    case sibling::dominant:
        return &impairments_.dominantPick();
    case sibling::associated:
        return &impairments_.associatedPick();
    default:
        return nullptr;
    }
}

void SiblingKind::layOutBelow(QBoxLayout& frame) {
    auto* Frame9 = new QGroupBox(QStringLiteral("Postihnutia"));
    Frame9->setObjectName(QStringLiteral("Frame9"));
    auto* grid = new QGridLayout(Frame9);
    grid->setHorizontalSpacing(forms::gap);
    grid->setVerticalSpacing(forms::tightGap);
    impairments_.layOut(*grid, ImpairmentFields::Shape::Narrow);
    frame.addWidget(Frame9);
}

void SiblingKind::enableInput(bool enabled) {
    sexPick_.pick().setVisible(enabled);
    impairments_.setOpen(enabled);
}

/// The row that is open as a new one counts as a row here, so that it shows nothing of the one
/// before. Of a row that has gone nothing is shown.
QString storedImpairments(store::Recordset& rows) {
    const bool isRow = rows.EditMode() == store::EditState::Add || rows.AbsolutePosition() >= 0;
    try {
        return isRow ? card::trimBlanks(rows.Fields(u"postih").Value().toText()) : QString();
    } catch (const store::EngineError& error) {
        if (error.number() != store::ErrorNumber::RecordDeleted)
            throw;
        return {};
    }
}

void SiblingKind::rowShown(store::Recordset& rows) {
    impairments_.show(storedImpairments(rows));
    sexPick_.pick().setPick(-1);
}

forms::Words SiblingKind::typedWords() const {
    forms::Words words;
    impairments_.addTyped(words, codesColumn);
    return words;
}

void SiblingKind::leftUnchecked(int field) {
    if (field == sibling::dominant || field == sibling::associated)
        impairments_.takePending();
}

bool SiblingKind::holds(int field) {
    if (field != sibling::dominant)
        return impairments_.takeAssociated();
    impairments_.takeDominant();
    return false;
}

void SiblingKind::complete(store::Recordset& rows) {
    impairments_.takePending();
    rows.Fields(u"postih").setValue(impairments_.joined());
}

} // namespace

std::unique_ptr<RecordKind> makeSiblingKind(const RecordParts& parts) {
    return std::make_unique<SiblingKind>(parts);
}

} // namespace clientcard
