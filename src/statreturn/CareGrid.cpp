#include "statreturn/CareGrid.h"

#include "forms/Colours.h"
#include "forms/EntryField.h"
#include "forms/Metrics.h"

#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace statreturn {

namespace {

/// Between the two blocks of columns, and around cells.
constexpr int betweenBlocks = 6;
constexpr int padding = 4;
constexpr int headLines = 4;

QString labelOf(const CareRow& row) {
    return QString::fromUtf16(row.label != nullptr ? row.label : row.text);
}

void colour(QWidget& head, const QColor& colour) {
    QPalette palette;
    palette.setColor(QPalette::Window, colour);
    head.setPalette(palette);
    head.setAutoFillBackground(true);
}

void light(QWidget*& lit, QWidget* head) {
    if (lit == head)
        return;
    if (lit != nullptr)
        colour(*lit, forms::headColour);
    colour(*head, forms::litHeadColour);
    lit = head;
}

QLabel* label(const QString& text, Qt::Alignment alignment, QWidget* parent) {
    auto* made = new QLabel(text, parent);
    made->setAlignment(alignment);
    return made;
}

int widestLabel(const QFontMetrics& metrics) {
    const auto rows = careTable();
    return std::transform_reduce(
        rows.begin(), rows.end(), 0, [](int a, int b) { return std::max(a, b); },
        [&](const CareRow& row) { return metrics.horizontalAdvance(labelOf(row)); });
}

} // namespace

CareGrid::CareGrid(const MakeCell& makeCell, QWidget* parent)
    : QScrollArea(parent), rowEdge_(new QWidget(this)), columnEdge_(new QWidget(this)),
      rowCanvas_(new QWidget(rowEdge_)), columnCanvas_(new QWidget(columnEdge_)) {
    makeRowHeads();
    makeColumnHeads();
    makeCells(makeCell);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    forms::fitToFont(*this, [this] { fitToFont(); });
}

/// All lengths follow from the letters.
void CareGrid::fitToFont() {
    const QFontMetrics metrics = fontMetrics();
    cellSize_ = {metrics.horizontalAdvance(QStringLiteral("jednoraz.")) + 2 * padding,
                 metrics.height() + padding};
    lineHeight_ = metrics.height() + 1;
    fitRowHeads();
    for (const ColumnHead& head : columnHeads_) {
        const int right = left(head.column + head.columns - 1) + cellSize_.width();
        head.label->setGeometry(left(head.column), head.line * lineHeight_,
                                right - left(head.column) - 1, head.lines * lineHeight_ - 1);
    }
    columnCanvas_->resize(left(careColumns), headLines * lineHeight_);
    for (int row = 0; row < careRows; ++row) {
        for (int column = 0; column < careColumns; ++column)
            cell(row, column)
                .setGeometry(
                    QRect({left(column), row * cellSize_.height()}, cellSize_ - QSize(1, 1)));
    }
    widget()->resize(left(careColumns), careRows * cellSize_.height());
    setViewportMargins(headWidth_, headLines * lineHeight_ + padding, 0, 0);
    setMaximumSize(sizeHint());
    updateGeometry();
    placeHeads();
}

void CareGrid::fitRowHeads() {
    const QFontMetrics metrics = fontMetrics();
    const int ofThat = metrics.horizontalAdvance(QStringLiteral("v tom")) + 2 * padding;
    const int text = widestLabel(metrics) + padding;
    const int code = metrics.horizontalAdvance(QStringLiteral("0000")) + 2 * padding;
    const int height = cellSize_.height();
    headWidth_ = ofThat + text + code;
    for (int row = 0; row < careRows; ++row) {
        const RowHead& head = rowHeads_[std::size_t(row)];
        head.ground->setGeometry(0, row * height, headWidth_, height - 1);
        head.ofThat->setGeometry(padding, 0, ofThat - padding, height - 1);
        head.text->setGeometry(ofThat, 0, text, height - 1);
        head.code->setGeometry(ofThat + text, 0, code, height - 1);
    }
    rowCanvas_->resize(headWidth_, careRows * height);
}

int CareGrid::left(int column) const {
    return column * cellSize_.width() + (column > blockOf(0).lastColumn ? betweenBlocks : 0);
}

void CareGrid::makeCells(const MakeCell& makeCell) {
    auto* canvas = new QWidget;
    for (int row = 0; row < careRows; ++row) {
        for (int column = 0; column < careColumns; ++column) {
            forms::EntryField* made = makeCell(row, column, canvas);
            made->setAlignment(Qt::AlignRight);
            made->setAccessibleName(QStringLiteral("Riadok %1 %2, stĺpec %3")
                                        .arg(QString::fromUtf16(careTable()[std::size_t(row)].code),
                                             labelOf(careTable()[std::size_t(row)]).trimmed(),
                                             careColumnName(column)));
            cells_[std::size_t(row)][std::size_t(column)] = made;
        }
    }
    setWidget(canvas);
    // The ground of the screen shows between the cells.
    canvas->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void CareGrid::makeRowHeads() {
    for (std::size_t row = 0; row < careRows; ++row) {
        const CareRow& words = careTable()[row];
        auto* ground = new QWidget(rowCanvas_);
        colour(*ground, forms::headColour);
        rowHeads_[row] = {
            ground, label(QString::fromUtf16(words.ofThat).trimmed(), Qt::AlignVCenter, ground),
            label(labelOf(words), Qt::AlignVCenter, ground),
            label(QString::fromUtf16(words.code), Qt::AlignCenter, ground)};
    }
}

QLabel* CareGrid::addColumnHead(const QString& text, int line, int lines, int column, int columns) {
    QLabel* head = label(text, Qt::AlignCenter, columnCanvas_);
    colour(*head, forms::headColour);
    columnHeads_.push_back({head, line, lines, column, columns});
    return head;
}

void CareGrid::makeColumnHeads() {
    const std::array<QString, 2> titles = {QStringLiteral("Počet aktivít ambulantných"),
                                           QStringLiteral("Počet aktivít terénnych (mobilných)")};
    for (std::size_t block = 0; block < titles.size(); ++block) {
        const int first = blockChecks()[block].total;
        addColumnHead(titles[block], 0, 1, first, 5);
        addColumnHead(QStringLiteral("spolu"), 1, 2, first, 1);
        addColumnHead(QStringLiteral("individuálne"), 1, 1, first + 1, 2);
        addColumnHead(QStringLiteral("skupinové"), 1, 1, first + 3, 2);
        for (int column = first + 1; column < first + 5; ++column)
            addColumnHead((column - first) % 2 == 1 ? QStringLiteral("jednoraz.")
                                                    : QStringLiteral("opakuj."),
                          2, 1, column, 1);
    }
    for (int column = 0; column < careColumns; ++column)
        columnHead_[std::size_t(column)] = addColumnHead(careColumnName(column), 3, 1, column, 1);
}

forms::EntryField& CareGrid::cell(int row, int column) const {
    return *cells_[std::size_t(row)][std::size_t(column)];
}

CareCells CareGrid::texts() const {
    CareCells texts;
    for (std::size_t row = 0; row < cells_.size(); ++row)
        std::ranges::transform(cells_[row], texts[row].begin(), &forms::EntryField::text);
    return texts;
}

void CareGrid::setTexts(const CareCells& texts) {
    for (std::size_t row = 0; row < cells_.size(); ++row) {
        for (std::size_t column = 0; column < careColumns; ++column)
            cells_[row][column]->setText(texts[row][column]);
    }
}

void CareGrid::showPlace(int row, int column) {
    ensureWidgetVisible(&cell(row, column), cellSize_.width(), cellSize_.height());
    light(litRow_, rowHeads_[std::size_t(row)].ground);
    light(litColumn_, columnHead_[std::size_t(column)]);
}

QSize CareGrid::sizeHint() const {
    return widget()->size() + QSize(headWidth_, headLines * lineHeight_ + padding) +
           QSize(verticalScrollBar()->sizeHint().width(), padding);
}

void CareGrid::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    placeHeads();
}

void CareGrid::scrollContentsBy(int dx, int dy) {
    QScrollArea::scrollContentsBy(dx, dy);
    placeHeads();
}

void CareGrid::placeHeads() {
    const QRect inside = viewport()->geometry();
    columnEdge_->setGeometry(inside.left(), inside.top() - headLines * lineHeight_ - padding,
                             inside.width(), headLines * lineHeight_);
    rowEdge_->setGeometry(inside.left() - headWidth_, inside.top(), headWidth_, inside.height());
    columnCanvas_->move(-horizontalScrollBar()->value(), 0);
    rowCanvas_->move(0, -verticalScrollBar()->value());
}

} // namespace statreturn
