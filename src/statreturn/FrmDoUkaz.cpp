#include "statreturn/FrmDoUkaz.h"

#include "forms/Metrics.h"
#include "forms/ScrollPage.h"
#include "validation/Validators.h"
#include "validation/modKontrola.h"

#include <QGridLayout>
#include <QLabel>

namespace statreturn {

namespace {

struct Indicator {
    const char16_t* column;
    const char16_t* code;
    const char16_t* group;
    const char16_t* line;
};

constexpr std::array<Indicator, 5> indicators = {{
    {u"r_0401", u"0401", u"Počet miestností ", u"spolu"},
    {u"r_0402", u"0402", u"Počet miestností ", u"nevyhovujúce"},
    {u"r_0403", u"0403", u"Diagnostické pobyty", u"počet detí"},
    {u"r_0404", u"0404", u"Diagnostické pobyty", u"počet hodín"},
    {u"r_0416", u"0416", u"", u"Kontrolný súčet (0401 až 0404) "},
}};

/// Digits of the largest sum, its sign and the edges.
constexpr int sumLetters = 13;
constexpr auto indicatorKeys = u"Enter alebo šípka dolu ďalšie pole  ·  Ctrl+S zápis";

bool opensGroup(int element) {
    const auto i = std::size_t(element);
    return *indicators[i].group != 0 &&
           (i == 0 || QStringView(indicators[i].group) != QStringView(indicators[i - 1].group));
}

} // namespace

FrmDoUkaz::FrmDoUkaz(store::DBEngine& engine, const store::ProgramFolder& folder, QWidget* parent)
    : EntryForm(engine, QStringLiteral("frmDoUkaz"), QStringLiteral("IV. Doplňujúce ukazovatele"),
                parent),
      datDopUkaz_(engine) {
    datDopUkaz_.setObjectName(QStringLiteral("datDopUkaz"));
    layOut();
    datDopUkaz_.setDatabaseName(folder.database());
    datDopUkaz_.setRecordSource(QStringLiteral("select * from dop_ukaz"));
    openRow();
    binding_.emplace(datDopUkaz_, forms::Shows::AllRows, forms::Refused::StopsAction);
    for (std::size_t i = 0; i < indicators.size(); ++i)
        binding_->bind(*TextPsych_[i], QString::fromUtf16(indicators[i].column));
    showSum();
    keepWords(folder, windowTitle(),
              {.tables = {QStringLiteral("dop_ukaz")},
               .typed = [this] { return binding_->typed(); },
               .enter =
                   [this](const words::Kept& kept) {
                       binding_->enter(kept.words);
                       showSum();
                   }});
}

FrmDoUkaz::~FrmDoUkaz() = default;

void FrmDoUkaz::layOut() {
    auto* heading = new QLabel(QStringLiteral("Zápis/oprava údajov"), this);
    heading->setObjectName(QStringLiteral("Label3"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * forms::gap);
    for (int i = 0; i < fieldCount; ++i)
        addField(*grid, i);
    live_ = new QLabel(this);
    live_->setObjectName(QStringLiteral("zivySucet"));
    forms::fitToFont(*live_,
                     [this] { live_->setMinimumWidth(forms::lettersWide(*live_, sumLetters)); });
    grid->addWidget(live_, controlSum, 4);
    auto* page = new QWidget(this);
    auto* upper = new QVBoxLayout(page);
    upper->addWidget(heading);
    upper->addLayout(grid);
    upper->addStretch(1);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(new forms::ScrollPage(page, this), 1);
    lines->addLayout(makeLastLine(u"cmdZap", u"cmdStorno", indicatorKeys));
}

void FrmDoUkaz::addField(QGridLayout& grid, int element) {
    const Indicator& row = indicators[std::size_t(element)];
    auto* field = makeField(QStringLiteral("TextPsych"), element, this);
    const QString group = QString::fromUtf16(row.group);
    const QString line = QString::fromUtf16(row.line);
    field->setAccessibleName((group.trimmed() + u' ' + line).trimmed());
    forms::fitToFont(*field,
                     [field] { field->setFixedWidth(forms::lettersWide(*field, sumLetters)); });
    field->setAlignment(Qt::AlignRight);
    if (opensGroup(element))
        grid.addWidget(new QLabel(group, this), element, 0);
    const bool alone = group.isEmpty();
    grid.addWidget(new QLabel(line, this), element, alone ? 0 : 1, 1, alone ? 2 : 1);
    grid.addWidget(new QLabel(QString::fromUtf16(row.code), this), element, 2);
    grid.addWidget(field, element, 3);
    TextPsych_[std::size_t(element)] = field;
}

void FrmDoUkaz::openRow() {
    datDopUkaz_.Refresh();
    store::Recordset& row = datDopUkaz_.Recordset();
    if (row.Eof())
        row.AddNew();
    else
        row.Edit();
}

void FrmDoUkaz::showEvent(QShowEvent* event) {
    EntryForm::showEvent(event);
    TextPsych_[0]->setFocus();
}

qint64 FrmDoUkaz::sum() const {
    qint64 sum = 0;
    for (int i = 0; i < controlSum; ++i)
        sum += modKontrola::Val(TextPsych_[std::size_t(i)]->text());
    return sum;
}

void FrmDoUkaz::showSum() {
    const bool agrees = sum() == modKontrola::Val(TextPsych_[controlSum]->text());
    live_->setText((agrees ? QStringLiteral("= ") : QStringLiteral("≠ ")) + QString::number(sum()));
}

void FrmDoUkaz::change(const forms::Control& /*control*/) {
    showSum();
}

void FrmDoUkaz::gotFocus(const forms::Control& control) {
    EntryForm::gotFocus(control);
    fokusIdx_ = -1;
}

bool FrmDoUkaz::validates(const forms::Control& control) const {
    return control.is(u"TextPsych");
}

bool FrmDoUkaz::validate(const forms::Control& control) {
    fokusIdx_ = -1;
    if (control.index() == controlSum &&
        sum() != modKontrola::Val(TextPsych_[controlSum]->text()) &&
        modKontrola::opravit(this, QStringLiteral("Nesedí kontrolný súčet !")))
        fokusIdx_ = 0;
    return false;
}

void FrmDoUkaz::returnFocus(const forms::Control& /*left*/) {
    if (fokusIdx_ > -1)
        TextPsych_[std::size_t(fokusIdx_)]->setFocus();
}

bool FrmDoUkaz::isChanged() const {
    return binding_->dataChanged();
}

void FrmDoUkaz::write() {
    enterAgain_ = binding_->keepTyped();
    datDopUkaz_.Recordset().Update();
    datDopUkaz_.Refresh();
}

void FrmDoUkaz::resume() {
    dropRow();
    openRow();
    enterAgain_();
}

void FrmDoUkaz::dropRow() {
    datDopUkaz_.Recordset().CancelUpdate();
    datDopUkaz_.Refresh();
}

void FrmDoUkaz::drop() {
    dropRow();
    modKontrola::gAkcia = 0;
}

/// An open row whose fields have changed is written with the end of its source.
bool FrmDoUkaz::endsByFrame() {
    return !isChanged() || tryToWrite();
}

} // namespace statreturn
