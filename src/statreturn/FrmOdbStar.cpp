#include "statreturn/FrmOdbStar.h"

#include "forms/EntryField.h"
#include "forms/Metrics.h"
#include "forms/ScrollPage.h"
#include "statreturn/CareGrid.h"
#include "statreturn/CareSums.h"
#include "validation/Validators.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace statreturn {

namespace {

constexpr auto careKeys =
    u"Enter alebo šípka dolu ďalšie pole  ·  Ctrl+šípky v stĺpci  ·  Ctrl+S zápis";
const QString cellPrefix = QStringLiteral("txt");

bool isCell(const forms::Control& control) {
    return control.index() >= 0 && control.name().startsWith(cellPrefix);
}

/// From 0.
int columnOf(const forms::Control& control) {
    return control.name().mid(cellPrefix.size()).toInt() - 1;
}

} // namespace

FrmOdbStar::FrmOdbStar(store::DBEngine& engine, const store::ProgramFolder& folder, QWidget* parent)
    : EntryForm(engine, QStringLiteral("frmOdbStar"), QStringLiteral("Form1"), parent),
      datOdbStar_(engine) {
    datOdbStar_.setObjectName(QStringLiteral("datOdbStar"));
    grid_ = new CareGrid(
        [this](int row, int column, QWidget* canvas) {
            return makeField(cellPrefix + careColumnName(column), row, canvas);
        },
        this);
    sums_ = new CareSums(this);
    layOut();
    fokusIdx_.fill(none);
    datOdbStar_.setDatabaseName(folder.database());
    datOdbStar_.setRecordSource(QStringLiteral("select * from odbstar"));
    load();
    sums_->show(stored_, 0, 0);
    keepWords(folder, QStringLiteral("V. Odborná starostlivosť"),
              {.tables = {QStringLiteral("odbstar")},
               .typed = [this] { return typedWords(); },
               .enter =
                   [this](const words::Kept& kept) {
                       enterWords(kept.words);
                   }});
}

void FrmOdbStar::layOut() {
    auto* frame = new QGroupBox(
        QStringLiteral("V. Klienti, ktorým bola poskytnutá odborná starostlivosť"), this);
    auto* upper = new QVBoxLayout;
    upper->addWidget(grid_, 1);
    upper->addStretch();
    auto* table = new QHBoxLayout(frame);
    table->addLayout(upper, 1);
    auto* sums = new forms::ScrollPage(sums_, this);
    sums->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->addWidget(sums);
    table->addStretch();
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(frame, 1);
    lines->addLayout(makeLastLine(u"cmdOk", u"cmdZrusit", careKeys));
    // By itself a dialog takes two thirds of the screen at most.
    resize(sizeHint().boundedTo(forms::roomFor(*this)));
}

void FrmOdbStar::load() {
    readRows();
    stored_ = readCare(datOdbStar_.Recordset());
    grid_->setTexts(stored_);
}

void FrmOdbStar::readRows() {
    datOdbStar_.Refresh();
    maZaznamy_ = !datOdbStar_.Recordset().Eof();
}

void FrmOdbStar::showEvent(QShowEvent* event) {
    EntryForm::showEvent(event);
    grid_->cell(0, 0).setFocus();
}

void FrmOdbStar::gotFocus(const forms::Control& control) {
    EntryForm::gotFocus(control);
    if (!isCell(control))
        return;
    grid_->showPlace(control.index(), columnOf(control));
    change(control);
}

void FrmOdbStar::change(const forms::Control& control) {
    sums_->show(grid_->texts(), control.index(), columnOf(control));
}

void FrmOdbStar::keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) {
    const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
    const bool isMove = step != 0 && modifiers.testFlag(Qt::ControlModifier);
    if (!isCell(control) || (!isMove && key != Qt::Key_Up))
        return EntryForm::keyDown(control, key, modifiers);
    // By itself Up would scroll the cell out of sight.
    key = 0;
    if (!isMove)
        return;
    const int row = control.index() + step;
    if (row >= 0 && row < careRows)
        forms::moveFocus(&grid_->cell(row, columnOf(control)));
}

bool FrmOdbStar::validates(const forms::Control& control) const {
    return isCell(control);
}

bool FrmOdbStar::validate(const forms::Control& control) {
    const int column = columnOf(control);
    const bool endsBlock = blockOf(column).lastColumn == column;
    fokusIdx_[std::size_t(column)] = none;
    if (endsBlock)
        fokusIdx_[std::size_t(blockOf(column).total)] = none;
    const CareCells cells = grid_->texts();
    if (const auto fault = faultAlongRow(cells, control.index(), column); fault && corrects(*fault))
        return false;
    if (const auto fault = faultDownColumn(cells, control.index(), column))
        corrects(*fault);
    return false;
}

/// The user wants to correct it, so the focus returns to where that begins.
bool FrmOdbStar::corrects(const CareFault& fault) {
    if (!modKontrola::opravit(this, fault.message))
        return false;
    fokusIdx_[std::size_t(fault.column)] = qint16(fault.row);
    return true;
}

void FrmOdbStar::goToTarget(int column) {
    if (const qint16 row = fokusIdx_[std::size_t(column)]; row > none)
        grid_->cell(row, column).setFocus();
}

void FrmOdbStar::returnFocus(const forms::Control& left) {
    if (!isCell(left))
        return;
    const int column = columnOf(left);
    // The columns that end a block also lead to its first. Of two targets the one asked for last
    // holds: in column 5 that is the block's, in column 10 the column's own.
    const BlockCheck& block = blockOf(column);
    if (column == block.lastColumn && block.total != 0)
        goToTarget(block.total);
    goToTarget(column);
    if (column == block.lastColumn && block.total == 0)
        goToTarget(block.total);
}

bool FrmOdbStar::isChanged() const {
    return grid_->texts() != stored_;
}

forms::Words FrmOdbStar::typedWords() const {
    forms::Words words;
    for (int row = 0; row < careRows; ++row) {
        for (int column = 0; column < careColumns; ++column) {
            const forms::EntryField& cell = grid_->cell(row, column);
            if (cell.text() != stored_[std::size_t(row)][std::size_t(column)])
                words.push_back({.field = cell.objectName(),
                                 .column = careField(column),
                                 .text = cell.text(),
                                 .row = row});
        }
    }
    return words;
}

void FrmOdbStar::enterWords(const forms::Words& words) {
    for (const forms::Word& word : words) {
        if (auto* cell = findChild<forms::EntryField*>(word.field))
            cell->setText(word.text);
    }
    sums_->show(grid_->texts(), 0, 0);
}

void FrmOdbStar::write() {
    writeCare(datOdbStar_.Recordset(), maZaznamy_, grid_->texts());
}

void FrmOdbStar::resume() {
    readRows();
}

} // namespace statreturn
