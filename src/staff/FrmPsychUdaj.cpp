#include "staff/FrmPsychUdaj.h"

#include "card/Buttons.h"
#include "card/FieldGrid.h"
#include "card/FieldKeys.h"
#include "card/TextRules.h"
#include "forms/CodeDropDown.h"
#include "forms/Colours.h"
#include "forms/FlowLayout.h"
#include "forms/KeyHint.h"
#include "forms/ScrollPage.h"
#include "validation/modKontrola.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace staff {

namespace {

constexpr std::array<card::ButtonRow, 3> buttonTable = {{
    {u"cmdZap", u"Zápis"},
    {u"cmdzapNew", u"Zápis + nový"},
    {u"cmdStorno", u"Storno"},
}};

constexpr std::array<card::FieldRow, 2> nameRows = {{
    {.column = u"meno", .caption = u"Meno zamestnanca :", .tidy = card::Tidy::Capital},
    {.column = u"priezv", .caption = u"Priezvisko zamestnanca :", .tidy = card::Tidy::Capital},
}};
constexpr card::FieldSet nameSet = {.array = u"TextPsych", .pageKeysTo = u"cmdZap"};

constexpr int nameCharacters = 34;
constexpr auto cardKeys = u"Enter ďalšie pole  ·  F4 zoznam  ·  šípky voľba  ·  PageDown na zápis";

} // namespace

FrmPsychUdaj::FrmPsychUdaj(store::DBEngine& engine, const store::ProgramFolder& folder,
                           QWidget* parent)
    : QDialog(parent), data_(engine, folder), actions_(engine, *this),
      words_(*this, engine, folder, QStringLiteral("zamestnanci")), guard_(this), esc_(this),
      txtIdKod_(new forms::EntryField(this)) {
    setObjectName(QStringLiteral("frmPsychUdaj"));
    setWindowTitle(QStringLiteral("Údaje zamestnanca") +
                   card::trimBlanks(modKontrola::gMenoKlienta));
    card::setGround(*this, QPalette::Window, forms::screenColour);
    makeControls();
    layOut();
    bind();
    openEmployee();
    words_.add({.tables = {QStringLiteral("zamestnanci")},
                .typed = [this] { return typedWords(); },
                .enter =
                    [this](const words::Kept& kept) {
                        enterWords(kept.words);
                    }});
    beginWords();
}

FrmPsychUdaj::~FrmPsychUdaj() = default;

void FrmPsychUdaj::makeControls() {
    txtIdKod_->setObjectName(QStringLiteral("txtIdKod"));
    txtIdKod_->hide();
    fields_.emplace(*this, guard_, nameSet,
                    std::vector<card::FieldRow>(nameRows.begin(), nameRows.end()), this);
    function_.emplace(*this, guard_, data_.datFunkc);
    fields_->setNeighbours(nullptr, &function_->pick());
    options_.emplace(*this, guard_);
    save_.emplace(data_, static_cast<card::KeyField&>(*this), *options_);
    buttons_ = card::makeButtons(buttonTable, this, [this](int i) { act(Button(i)); });
    esc_.set(buttons_[cmdStorno]);
}

void FrmPsychUdaj::layOut() {
    auto* page = new QWidget(this);
    auto* upper = new QVBoxLayout(page);
    upper->setContentsMargins(0, 0, 0, 0);
    layOutFields(*upper);
    auto* frames = new forms::FlowLayout(forms::FlowLayout::Fill::Share);
    upper->addLayout(frames);
    for (QGroupBox* frame : options_->frames())
        frames->addWidget(frame);
    upper->addStretch(1);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(new forms::ScrollPage(page, this), 1);
    lines->addLayout(layOutFoot());
}

void FrmPsychUdaj::layOutFields(QBoxLayout& lines) {
    auto* heading = new QLabel(QStringLiteral("Zápis/oprava údajov"), this);
    heading->setObjectName(QStringLiteral("Label3"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    lines.addWidget(heading);
    auto* frame = new QVBoxLayout;
    lines.addLayout(frame);
    card::FieldGrid grid(*frame);
    int row = 0;
    for (forms::EntryField* field : fields_->fields()) {
        card::setWidth(*field, nameCharacters);
        grid.add({row, 0}, QString::fromUtf16(nameRows[std::size_t(row)].caption), *field, nullptr);
        ++row;
    }
    card::setWidth(function_->pick(), nameCharacters);
    grid.add({row, 0}, QStringLiteral("Pracovné zaradenie :"), function_->pick(), nullptr);
}

QLayout* FrmPsychUdaj::layOutFoot() {
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::First);
    line->addWidget(new forms::KeyHint(QString::fromUtf16(cardKeys), this));
    for (QPushButton* button : buttons_)
        line->addWidget(button);
    return line;
}

void FrmPsychUdaj::bind() {
    binding_.emplace(data_.datPsych);
    binding_->bind(*txtIdKod_, QStringLiteral("idkod"));
    for (std::size_t i = 0; i < nameRows.size(); ++i)
        binding_->bind(fields_->field(int(i)), QString::fromUtf16(nameRows[i].column));
    binding_->bind(function_->pick(), QStringLiteral("prac_zar"));
}

void FrmPsychUdaj::openEmployee() {
    data_.openEmployee(modKontrola::gIdKod);
    store::Recordset& employee = data_.datPsych.Recordset();
    if (modKontrola::gAkcia != 2)
        return employee.AddNew();
    if (employee.Eof())
        throw store::EngineError(store::ErrorNumber::NoCurrentRecord,
                                 QStringLiteral("Zamestnanec s kľúčom „%1“ už v databáze nie je.")
                                     .arg(modKontrola::gIdKod));
    options_->show(employee);
    chosenBefore_ = options_->chosen();
    employee.Edit();
}

forms::Words FrmPsychUdaj::typedWords() const {
    forms::Words words = binding_->typed();
    const forms::Words chosen = options_->typed(chosenBefore_);
    words.insert(words.end(), chosen.begin(), chosen.end());
    return words;
}

void FrmPsychUdaj::enterWords(const forms::Words& words) {
    binding_->enter(words);
    options_->enter(words);
}

void FrmPsychUdaj::beginWords() {
    const bool isNew = modKontrola::gAkcia != 2;
    words_.begin(isNew ? QString() : modKontrola::gIdKod,
                 isNew ? QStringLiteral("nový zamestnanec")
                       : (fields_->text(0) + u' ' + fields_->text(1)).simplified());
}

card::Names FrmPsychUdaj::typed() const {
    return {fields_->text(1), fields_->text(0)};
}

void FrmPsychUdaj::tellMissing(const QString& message) {
    card::refuse(*this, message);
}

void FrmPsychUdaj::act(Button button) {
    words_.keep();
    std::optional<DialogCode> end;
    actions_.perform([&] { end = press(button); });
    if (!end)
        return;
    modKontrola::gAkcia = 0;
    dropRow();
    done(*end);
}

/// @return how the card ends, when it does
std::optional<QDialog::DialogCode> FrmPsychUdaj::press(Button button) {
    switch (button) {
    case cmdZap:
        if (!saves([] {}))
            return std::nullopt;
        words_.written();
        return Accepted;
    case cmdzapNew:
        if (saves([this] { data_.datPsych.Recordset().AddNew(); }))
            beginNew();
        return std::nullopt;
    case cmdStorno:
        words_.dropped();
        return Rejected;
    }
    return std::nullopt;
}

/// @param afterwards what is opened behind the saving, as a part of the same unit
/// @return false when a name is missing; its field has the focus then
bool FrmPsychUdaj::saves(const std::function<void()>& afterwards) {
    auto result = SaveResult::Saved;
    write([&] {
        result = save_->zapisZam();
        if (result != SaveResult::Saved)
            return;
        save_->leaveRow();
        afterwards();
    });
    if (result != SaveResult::Saved)
        fields_->field(result == SaveResult::NoFirstName ? 0 : 1).setFocus();
    return result == SaveResult::Saved;
}

void FrmPsychUdaj::write(const std::function<void()>& writes) {
    if (draft_.isOwed())
        draft_.openOwed({binding_->keepTyped()});
    draft_.keepRow(data_.datPsych, {binding_->keepTyped()});
    actions_.write(writes, [this, akcia = modKontrola::gAkcia] {
        modKontrola::gAkcia = akcia;
        draft_.resume();
    });
}

/// The options stay as they were chosen for the employee before.
void FrmPsychUdaj::beginNew() {
    modKontrola::gAkcia = 1;
    chosenBefore_ = options_->chosen();
    beginWords();
    fields_->field(0).setFocus();
}

/// Reads nothing, so that a card closes whose file has gone.
void FrmPsychUdaj::dropRow() {
    const QSignalBlocker silent(data_.datPsych);
    if (data_.datPsych.isOpen())
        data_.datPsych.Recordset().CancelUpdate();
}

void FrmPsychUdaj::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(wasShown_, true))
        fields_->field(0).setFocus();
}

bool FrmPsychUdaj::isChanged() const {
    return draft_.isOwed() || binding_->dataChanged() || options_->chosen() != chosenBefore_;
}

/// An employee who is there and still has a name can be kept as the fields show.
bool FrmPsychUdaj::isKeptByFrame() {
    return data_.datPsych.isOpen() &&
           data_.datPsych.Recordset().EditMode() == store::EditState::Edit &&
           !card::trimBlanks(fields_->text(0)).isEmpty() &&
           !card::trimBlanks(fields_->text(1)).isEmpty();
}

/// Closing by the frame makes no key and leaves `gAkcia` alone.
/// @return false to stay open
bool FrmPsychUdaj::endsByFrame() {
    bool ends = false;
    actions_.perform([&] {
        if (forms::moveFocus(buttons_[cmdZap]))
            ends = !isChanged() || keepOrDrop();
    });
    if (ends) {
        words_.dropped();
        dropRow();
    }
    return ends;
}

bool FrmPsychUdaj::keepOrDrop() {
    if (!isKeptByFrame())
        return card::mayDrop(*this, QStringLiteral("Zamestnanec nie je zapísaný. Zahodiť, čo bolo "
                                                   "zadané ?"));
    write([this] {
        options_->volbyDoZaznamu(data_.datPsych.Recordset());
        save_->leaveRow();
    });
    words_.written();
    return true;
}

void FrmPsychUdaj::closeEvent(QCloseEvent* event) {
    if (isVisible() && !endsByFrame())
        return event->ignore();
    QDialog::closeEvent(event);
}

} // namespace staff
