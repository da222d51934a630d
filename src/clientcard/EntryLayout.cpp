#include "clientcard/EntryLayout.h"

#include "card/CalendarNote.h"
#include "card/FieldGrid.h"
#include "clientcard/EntryFields.h"
#include "clientcard/EntryTable.h"
#include "clientcard/ImpairmentFields.h"
#include "clientcard/ParentOptions.h"
#include "clientcard/Pickers.h"
#include "forms/DropDown.h"
#include "forms/FlowLayout.h"
#include "forms/Metrics.h"
#include "forms/ScrollPage.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <span>
#include <vector>

namespace clientcard {

namespace {

/// Where an element lies in the grid of its frame: the label in one column, the field in the next.
struct Cell {
    int element;
    int row;
    int pair;
    /// Characters that the field shows.
    int characters;
    /// Pairs of columns that the field reaches over.
    int pairs = 1;
};

/// The picker of a code shows so many characters; the longest meanings are in the second column.
constexpr int leastOfCodePick[] = {16, 31};
constexpr int mostOfCodePick = 44;
constexpr int impairmentCharacters = 2;
/// Of the width of the page.
constexpr int shareOfNames = 2;
constexpr int shareOfCodes = 3;
constexpr int sexPickCharacters = 5;

constexpr Cell basicCells[] = {
    {krz::meno, 0, 0, 20},     {krz::priezv, 0, 1, 30},  {krz::mienar, 1, 0, 30},
    {krz::rodcis, 1, 1, 11},   {krz::datnar, 2, 0, 12},  {krz::pohlav, 2, 1, 2},
    {krz::katcis, 3, 0, 10},   {krz::zdrpoi, 3, 1, 3},   {krz::narodn, 4, 0, 3},
    {krz::stprisl, 4, 1, 3},   {krz::jazyk, 5, 0, 3},    {krz::jaz_doma, 6, 0, 3},
    {krz::ulica, 7, 0, 25},    {krz::obec, 7, 1, 30},    {krz::psc, 8, 0, 6},
    {krz::skola, 9, 0, 70, 2}, {krz::odporu, 10, 0, 30}, {krz::datevi, 10, 1, 12},
};

/// From an element of the mother to that of the father.
constexpr int toFather = krz::otec - krz::matka;

/// The mother; the father's elements lie behind hers by a distance.
constexpr Cell parentCells[] = {
    {krz::matka, 0, 0, 43, 2},    {krz::matnar, 2, 0, 5},     {krz::matvek, 2, 1, 3},
    {krz::matvzd, 3, 0, 20, 2},   {krz::matuli, 4, 0, 25, 2}, {krz::matobe, 5, 0, 30, 2},
    {krz::matpsc, 6, 0, 6},       {krz::mattel, 6, 1, 15},    {krz::matmail, 7, 0, 30, 2},
    {krz::matzam, 8, 0, 30, 2},   {krz::mataza, 9, 0, 43, 2}, {krz::mattza, 10, 0, 15},
    {krz::matchor, 11, 0, 43, 2},
};

constexpr Cell representativeCells[] = {
    {krz::kon_meno, 1, 0, 43},
    {krz::kon_obe, 2, 0, 30},
    {krz::kon_psc, 3, 0, 6},
    {krz::kon_mail, 4, 0, 30},
};
constexpr Cell cellsBeside[] = {
    {krz::kon_pomer, 1, 0, 20},
    {krz::kon_uli, 2, 0, 25},
    {krz::kon_tel, 3, 0, 15},
};

/// Width of the longest of the captions of these elements.
int widestCaption(std::span<const Cell> cells, int pair = 0) {
    int widest = 0;
    for (const Cell& cell : cells) {
        const EntryRow& row = entryTable()[std::size_t(cell.element)];
        const QLabel caption(card::captionInLines(QString::fromUtf16(row.field.caption)));
        if (cell.pair == pair)
            widest = std::max(widest, caption.sizeHint().width());
    }
    return widest;
}

/// The column of captions is as wide in all frames of a page, so that the fields stand in a line.
void alignCaptions(QGridLayout& grid, std::span<const Cell> cells, int pair = 0, int column = 0) {
    forms::fitToFont(*grid.parentWidget(), [&grid, cells, pair, column] {
        grid.setColumnMinimumWidth(column, widestCaption(cells, pair));
    });
}

class FrameMaker {
  public:
    FrameMaker(const EntryControls& controls, QBoxLayout& frame)
        : controls_(controls), fields_(frame) {}

    /// @param distance from the cells' elements to those that are meant
    void place(std::span<const Cell> cells, int distance = 0) {
        for (const Cell& cell : cells)
            place(cell, distance + cell.element);
    }
    QGridLayout& grid() { return fields_.grid(); }

  private:
    void place(const Cell& cell, int element) {
        const EntryRow& row = entryTable()[std::size_t(element)];
        forms::EntryField& field = controls_.fields.field(element);
        card::setWidth(field, cell.characters);
        fields_.add({cell.row, cell.pair, cell.pairs}, QString::fromUtf16(row.field.caption), field,
                    pickOf(cell, row));
    }

    QWidget* pickOf(const Cell& cell, const EntryRow& row) {
        if (cell.element == krz::pohlav) {
            card::setWidth(controls_.cmbSex, sexPickCharacters);
            return &controls_.cmbSex;
        }
        if (row.picker < 0)
            return nullptr;
        forms::DropDown& pick = controls_.pickers.picker(row.picker);
        // A municipality's picker would only repeat the field; that of codes says what they mean.
        if (row.own == Own::NameLookUp)
            pick.showArrowOnly();
        else
            card::setRoom(pick, leastOfCodePick[cell.pair], mostOfCodePick);
        return &pick;
    }

    const EntryControls& controls_;
    card::FieldGrid fields_;
};

QGroupBox* makeFrame(const QString& title, const QString& name, QWidget* parent) {
    auto* frame = new QGroupBox(title, parent);
    frame->setObjectName(name);
    new QHBoxLayout(frame);
    return frame;
}

QBoxLayout& lineOf(const QGroupBox& frame) {
    return static_cast<QBoxLayout&>(*frame.layout());
}

void addOptions(QGridLayout& grid, const ParentOptions& options, int first, int last, int row,
                int columns) {
    auto* line = new QHBoxLayout;
    line->setSpacing(16);
    for (int i = first; i <= last; ++i)
        line->addWidget(options.option(i));
    line->addStretch();
    grid.addLayout(line, row, 1, 1, columns);
}

QGridLayout& addImpairments(QGridLayout& grid, const ImpairmentFields& impairments, int row,
                            ImpairmentFields::Shape shape) {
    auto* inner = new QGridLayout;
    inner->setHorizontalSpacing(forms::gap);
    inner->setVerticalSpacing(forms::tightGap);
    impairments.layOut(*inner, shape);
    grid.addLayout(inner, row, 0, 1, 4);
    return *inner;
}

QGroupBox* makeParentFrame(const EntryControls& controls, const QString& title, const QString& name,
                           int distance, int firstOption, const ImpairmentFields& impairments,
                           QWidget* parent) {
    auto* frame = makeFrame(title, name, parent);
    FrameMaker maker(controls, lineOf(*frame));
    maker.place(parentCells, distance);
    for (const int element : {krz::dominantM, krz::associatedM})
        card::setWidth(controls.fields.field(distance + element), impairmentCharacters);
    addOptions(maker.grid(), controls.options, firstOption, firstOption + 1, 1, 3);
    alignCaptions(maker.grid(), parentCells);
    alignCaptions(addImpairments(maker.grid(), impairments, 13, ImpairmentFields::Shape::Narrow),
                  parentCells);
    maker.grid().setColumnStretch(3, 1);
    return frame;
}

/// One half of the representative's fields. They stand in a line with those of the other half.
QGridLayout& makeHalf(const EntryControls& controls, std::span<const Cell> cells,
                      forms::FlowLayout& halves) {
    auto* half = new QVBoxLayout;
    halves.addLayout(half);
    FrameMaker maker(controls, *half);
    half->addStretch();
    maker.place(cells);
    QGridLayout& grid = maker.grid();
    alignCaptions(grid, parentCells);
    grid.setColumnStretch(1, 1);
    forms::fitToFont(*grid.parentWidget(), [&grid, &pick = controls.pickers.picker(0)] {
        for (int row = 0; row <= 4; ++row)
            grid.setRowMinimumHeight(row, pick.sizeHint().height());
    });
    return grid;
}

QGroupBox* makeRepresentativeFrame(const EntryControls& controls, QWidget* parent) {
    auto* frame = new QGroupBox(QStringLiteral("Zákonný zástupca"), parent);
    frame->setObjectName(QStringLiteral("fraZast"));
    auto* halves = new forms::FlowLayout(forms::FlowLayout::Fill::Share, frame);
    addOptions(makeHalf(controls, representativeCells, *halves), controls.options, 4, 6, 0, 1);
    QGridLayout& beside = makeHalf(controls, cellsBeside, *halves);
    // An empty row has no spacing below it.
    beside.setRowMinimumHeight(0, beside.rowMinimumHeight(0) + beside.verticalSpacing());
    return frame;
}

/// Tab goes from one to the next; those without a place in the walk are not in the list.
void chain(const std::vector<QWidget*>& widgets) {
    for (std::size_t i = 1; i < widgets.size(); ++i)
        QWidget::setTabOrder(widgets[i - 1], widgets[i]);
}

void addElements(std::vector<QWidget*>& order, const EntryFields& fields, int from, int to) {
    for (int i = from; i <= to; ++i)
        order.push_back(&fields.field(i));
}

void addPicks(std::vector<QWidget*>& order, const EntryFields& fields,
              const ImpairmentFields& impairments, int dominant) {
    order.push_back(&fields.field(dominant));
    order.push_back(&impairments.dominantPick());
    order.push_back(&fields.field(dominant + 1));
    order.push_back(&impairments.associatedPick());
    order.push_back(&impairments.inWords());
}

void chainBasic(const EntryControls& controls) {
    std::vector<QWidget*> order;
    addElements(order, controls.fields, krz::meno, krz::datnar);
    order.push_back(&controls.cmbSex);
    addElements(order, controls.fields, krz::katcis, krz::datevi);
    addPicks(order, controls.fields, controls.client, krz::dominantK);
    order.push_back(&controls.fields.field(krz::pohlav));
    chain(order);
}

void chainParents(const EntryControls& controls) {
    std::vector<QWidget*> order;
    const auto addParent = [&](int distance, int option, const ImpairmentFields& impairments) {
        order.push_back(controls.options.option(option));
        order.push_back(controls.options.option(option + 1));
        addElements(order, controls.fields, distance + krz::matka, distance + krz::matchor);
        addPicks(order, controls.fields, impairments, distance + krz::dominantM);
    };
    addParent(0, 0, controls.mother);
    addParent(toFather, 2, controls.father);
    for (int i = 4; i < ParentOptions::count; ++i)
        order.push_back(controls.options.option(i));
    addElements(order, controls.fields, krz::kon_meno, krz::kon_mail);
    chain(order);
}

} // namespace

QWidget* makeBasicPage(const EntryControls& controls, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* basic = makeFrame(QStringLiteral("Základné údaje"), QStringLiteral("fraZak"), page);
    FrameMaker maker(controls, lineOf(*basic));
    maker.place(basicCells);
    auto* impaired =
        makeFrame(QStringLiteral("Postihnutia klienta"), QStringLiteral("fraZiaPos"), page);
    for (const int element : {krz::dominantK, krz::associatedK})
        card::setWidth(controls.fields.field(element), impairmentCharacters);
    QGridLayout& impairments = addImpairments(FrameMaker(controls, lineOf(*impaired)).grid(),
                                              controls.client, 0, ImpairmentFields::Shape::Wide);
    alignCaptions(maker.grid(), basicCells);
    alignCaptions(maker.grid(), basicCells, 1, 2);
    alignCaptions(impairments, basicCells);
    alignCaptions(impairments, basicCells, 1, 3);
    for (QGridLayout* grid : {&maker.grid(), &impairments}) {
        const int last = grid == &impairments ? 5 : 3;
        grid->setColumnStretch(last / 2, shareOfNames);
        grid->setColumnStretch(last, shareOfCodes);
    }

    auto* lines = new QVBoxLayout(page);
    lines->setContentsMargins(0, 0, 0, 0);
    auto* frames = new forms::FlowLayout(forms::FlowLayout::Fill::Share);
    lines->addLayout(frames);
    for (QWidget* frame : {basic, impaired})
        frames->addWidget(frame);
    lines->addWidget(&controls.fields.calendarNote());
    lines->addWidget(&controls.lastRecords);
    lines->addStretch();
    chainBasic(controls);
    return new forms::ScrollPage(page, parent);
}

QWidget* makeParentsPage(const EntryControls& controls, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* frames = new forms::FlowLayout(forms::FlowLayout::Fill::Share, page);
    frames->addWidget(makeParentFrame(controls, QStringLiteral("Matka"), QStringLiteral("Frame1"),
                                      0, 0, controls.mother, page));
    frames->addWidget(makeParentFrame(controls, QStringLiteral("Otec"), QStringLiteral("Frame2"),
                                      toFather, 2, controls.father, page));
    frames->addWidget(makeRepresentativeFrame(controls, page));
    chainParents(controls);
    return new forms::ScrollPage(page, parent);
}

} // namespace clientcard
