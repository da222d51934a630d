#include "clientcard/MemoTabs.h"

#include "clientcard/CardData.h"
#include "clientcard/CardTables.h"
#include "forms/Binding.h"
#include "forms/FieldEvents.h"
#include "forms/Guard.h"
#include "forms/RichText.h"
#include "forms/WhyNot.h"
#include "report/StoredText.h"

#include <QDialog>
#include <QGroupBox>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <map>

namespace clientcard {

namespace {

class MemoTabs : public TabFamily {
  public:
    explicit MemoTabs(CardFrame& frame);

    QWidget* makePage(int tab, QWidget* parent) override;
    void turnedTo(int tab) override { fields_.at(tab)->setFocus(); }
    TabContents contentsOf(int tab) override;
    bool isChanged() const override { return binding_.dataChanged(); }
    forms::Words typedWords() const override { return binding_.typed(); }
    void enterWords(const forms::Words& words) override { binding_.enter(words); }

  private:
    void enableByRow();

    CardFrame& frame_;
    store::DataSource& source_;
    std::map<int, forms::RichText*> fields_;
    forms::Binding binding_;
};

MemoTabs::MemoTabs(CardFrame& frame)
    : frame_(frame), source_(frame.data().datMemo()), binding_(source_, forms::Shows::OpenRows) {
    QObject::connect(&source_, &store::DataSource::repositioned, &binding_,
                     [this] { forms::showGuarded(&frame_.window(), [this] { enableByRow(); }); });
}

/// Without an open row, as of a client whose row is missing, what was typed would go nowhere.
void MemoTabs::enableByRow() {
    for (const auto& [tab, field] : fields_)
        forms::setUsable(*field, source_.Recordset().EditMode() != store::EditState::None,
                         QStringLiteral("Register nemá riadok pre texty tohto klienta. Pomôže "
                                        "Servis, Kontrola údajov."));
}

bool holdsText(const QString& stored) {
    return !std::ranges::all_of(report::readStored(stored), &report::RichParagraph::isBlank);
}

/// The field is read when it is first in sight, so it is the row that tells.
TabContents MemoTabs::contentsOf(int tab) {
    if (fields_.at(tab)->dataChanged())
        return {QStringLiteral("text*"), QStringLiteral("text je zmenený, ešte nie je zapísaný")};
    const TabRow& row = tabTable()[std::size_t(tab)];
    if (source_.Recordset().EditMode() == store::EditState::None ||
        !holdsText(source_.Recordset().Fields(row.column).Value().toText()))
        return {{}, QStringLiteral("bez textu")};
    return {QStringLiteral("text"), QStringLiteral("text je zapísaný")};
}

QWidget* MemoTabs::makePage(int tab, QWidget* parent) {
    const TabRow& row = tabTable()[std::size_t(tab)];
    auto* page = new QGroupBox(QString::fromUtf16(row.caption), parent);
    auto* field = new forms::RichText(page);
    field->setObjectName(forms::elementName(QStringLiteral("rtbDUK"), row.element));
    field->editor().setAccessibleName(QString::fromUtf16(row.caption));
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(field);
    binding_.bind(*field, QString::fromUtf16(row.column));
    fields_[tab] = field;
    return page;
}

} // namespace

std::unique_ptr<TabFamily> makeMemoTabs(CardFrame& frame) {
    return std::make_unique<MemoTabs>(frame);
}

} // namespace clientcard
