#include "card/Actions.h"
#include "card/FieldGrid.h"
#include "clientcard/CardData.h"
#include "clientcard/CodePick.h"
#include "clientcard/RecordKind.h"
#include "clientcard/RecordStateTexts.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FlowLayout.h"
#include "forms/Metrics.h"
#include "forms/WhyNot.h"
#include "store/DataSource.h"
#include "store/Sql.h"
#include "validation/modKontrola.h"

#include <QGroupBox>
#include <QRadioButton>

#include <algorithm>
#include <array>

namespace clientcard {

namespace {

constexpr CodePickRow facilities = {.name = u"dbcZar",
                                    .toolTip = u"výber zariadenia",
                                    .source = u"DatCisZar",
                                    .table = u"c_zariad",
                                    .codeColumn = u"kod",
                                    .nameColumn = u"nazov"};

constexpr int codeLength = 2;

/// The pick of the facility. Its list opens at the code in the field.
class FacilityPick : public CodePick {
  public:
    using CodePick::CodePick;

  protected:
    bool opens(forms::Area area) override;
    void take() override { field().setText(pick().text().left(codeLength)); }
};

bool FacilityPick::opens(forms::Area area) {
    if (area != forms::Area::Button)
        return true;
    store::Recordset& rows = codes().Recordset();
    rows.FindFirst(QStringLiteral("kod =") + store::quoted(field().text().left(codeLength)));
    if (rows.NoMatch() && !rows.Eof())
        rows.MoveFirst();
    return true;
}

/// A kind of placement that can be on show.
struct View {
    const char16_t* option;
    const char16_t* caption;
    QStringView akronym;
};

constexpr std::array<View, 2> views = {{
    {u"optZarVv", u"Údaje o výchove a vzdelávaní", schools},
    {u"optZarTvk", u"Údaje o špeciálno-pedag. starostlivosti", counselling},
}};

class PlacementKind : public RecordKind {
  public:
    explicit PlacementKind(const RecordParts& parts);

    forms::DropDown* pickOf(int field) const override {
        return field == 0 ? &facility_.pick() : nullptr;
    }
    void layOutAbove(QBoxLayout& page) override { page.addWidget(Frame4_); }

    void enableInput(bool enabled) override {
        forms::setUsable(facility_.pick(), enabled, recordIsClosedText());
    }
    /// The kind can't change under a record that is open.
    void setEditing(bool editing) override { Frame4_->setVisible(!editing); }
    void rowShown(store::Recordset& /*rows*/) override { facility_.showMeaning(); }
    bool holds(int /*field*/) override { return facility_.lookUp(); }
    forms::Words begunAmong() const override;
    void showAmong(const forms::Words& words) override;
    void wasFilled() override { facility_.showMeaning(); }
    void complete(store::Recordset& rows) override;
    QString sayEmptyLine(store::Recordset& row) const override;
    QString recordSource(const QString& key) const override { return placementsOf(key, akronym()); }

  private:
    QStringView akronym() const { return (optZarVv()->isChecked() ? views[0] : views[1]).akronym; }
    QRadioButton* optZarVv() const { return options_[0]; }
    void makeOptions();
    void showView();

    CardFrame& frame_;
    store::DataSource& source_;
    store::DataSource& codes_;
    const std::function<void()> browse_;
    FacilityPick facility_;
    QGroupBox* Frame4_;
    std::array<QRadioButton*, views.size()> options_{};
};

PlacementKind::PlacementKind(const RecordParts& parts)
    : frame_(parts.frame), source_(parts.source), codes_(parts.frame.data().source(u"DatCisZar")),
      browse_(parts.browse), facility_(parts.frame, facilities, *parts.fields[0], parts.workshop),
      Frame4_(new QGroupBox(QStringLiteral("Zmena údajov"), parts.workshop)) {
    makeOptions();
}

void PlacementKind::makeOptions() {
    Frame4_->setObjectName(QStringLiteral("Frame4"));
    card::keepPlace(*Frame4_);
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::Left, Frame4_);
    line->setContentsMargins(forms::gap, forms::gap, forms::gap, forms::gap);
    line->setSpacing(2 * forms::gap);
    for (std::size_t i = 0; i < views.size(); ++i) {
        options_[i] = new QRadioButton(QString::fromUtf16(views[i].caption), Frame4_);
        options_[i]->setObjectName(QString::fromUtf16(views[i].option));
        QObject::connect(options_[i], &QRadioButton::clicked, options_[i],
                         [this] { frame_.actions().perform([this] { showView(); }); });
        line->addWidget(options_[i]);
    }
    optZarVv()->setChecked(true);
}

void PlacementKind::showView() {
    codes_.setRecordSource(placementCodes(akronym()));
    codes_.Refresh();
    source_.setRecordSource(placementsOf(modKontrola::gIdKod, akronym()));
    source_.Refresh();
    browse_();
}

/// A placement that goes on, or whose beginning nobody knows, has no range of dates to show.
QString PlacementKind::sayEmptyLine(store::Recordset& row) const {
    const QString from = row.Fields(u"vzar_od").Value().toText();
    const QString to = row.Fields(u"vzar_do").Value().toText();
    return (from.isEmpty() ? QStringLiteral("začiatok nie je zadaný")
                           : QStringLiteral("od ") + from) +
           (to.isEmpty() ? QStringLiteral(", trvá") : QStringLiteral(", do ") + to);
}

forms::Words PlacementKind::begunAmong() const {
    return {{.field = Frame4_->objectName(),
             .column = QStringLiteral("akronym"),
             .text = akronym().toString(),
             .caption = QStringLiteral("Druh zariadenia")}};
}

void PlacementKind::showAmong(const forms::Words& words) {
    const auto word = std::ranges::find(words, Frame4_->objectName(), &forms::Word::field);
    if (word == words.end() || word->text == akronym())
        return;
    const auto view = std::ranges::find(views, word->text, &View::akronym);
    options_[std::size_t(view == views.end() ? 0 : view - views.begin())]->setChecked(true);
    showView();
}

/// A date that is left empty is Null; the binding gives a date column nothing else for it.
void PlacementKind::complete(store::Recordset& rows) {
    if (rows.EditMode() == store::EditState::Add)
        rows.Fields(u"akronym").setValue(akronym().toString());
}

} // namespace

std::unique_ptr<RecordKind> makePlacementKind(const RecordParts& parts) {
    return std::make_unique<PlacementKind>(parts);
}

} // namespace clientcard
