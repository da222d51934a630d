#include "statreturn/NumbersView.h"

#include "forms/Colours.h"
#include "forms/Metrics.h"
#include "forms/RowLook.h"
#include "statreturn/Counts.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace statreturn {

namespace {

constexpr int headPadding = 4;
constexpr int rowPadding = 5;
/// Columns take the room that there is, up to so many letters.
constexpr int widestColumn = 20;
/// Heads of rows with more letters are cut short: their tool tip has the whole text.
constexpr int widestRowHead = 54;
constexpr double headScale = 0.85;

int linesOf(const QString& text) {
    return text.isEmpty() ? 0 : int(text.count(u'\n')) + 1;
}

/// Heads of which one or two light up, and which may have a heading over several of them.
class NumberHeader : public QHeaderView {
  public:
    NumberHeader(Qt::Orientation orientation, QTableView& view)
        : QHeaderView(orientation, &view), view_(view) {
        setSectionResizeMode(Fixed);
        setSectionsClickable(false);
        setMinimumSectionSize(1);
        if (orientation == Qt::Horizontal)
            forms::enlarge(*this, headScale, false);
    }

    /// The space that all texts need: the height of heads of columns, the width of heads of rows.
    int extent() const {
        const QFontMetrics metrics = fontMetrics();
        int lines = 0;
        int groupLines = 0;
        int width = 0;
        for (int section = 0; section < count(); ++section) {
            lines = std::max(lines, linesOf(textOf(section)));
            groupLines = std::max(groupLines, linesOf(groupOf(section)));
            width = std::max(width, metrics.horizontalAdvance(textOf(section)));
        }
        return orientation() == Qt::Horizontal
                   ? (lines + groupLines) * metrics.height() + 3 * headPadding
                   : std::min(width + 3 * headPadding, forms::lettersWide(view_, widestRowHead));
    }

    /// The least width of a column that shows its heads and numbers of so many digits.
    int columnWidth(qsizetype digits) const {
        int width = view_.fontMetrics().horizontalAdvance(QString(digits, u'0')) + 3 * headPadding;
        for (int section = 0; section < count(); ++section) {
            width = std::max(width, widthOf(textOf(section)) + headPadding);
            const int members = lastOf(section) - firstOf(section) + 1;
            width = std::max(width, widthOf(groupOf(section)) / members + headPadding);
        }
        return width;
    }

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override {
        painter->save();
        painter->setClipRect(rect);
        const QString group = groupOf(section);
        QRect own = rect;
        if (!group.isEmpty()) {
            QRect over(sectionViewportPosition(firstOf(section)), rect.top(), 0,
                       linesOfGroups() * fontMetrics().height() + headPadding);
            over.setRight(sectionViewportPosition(lastOf(section)) + sectionSize(lastOf(section)) -
                          1);
            own.setTop(over.bottom() + 1);
            paintHead(*painter, over, group, isLit(firstOf(section), lastOf(section)));
        }
        paintHead(*painter, own, textOf(section), isLit(section, section));
        painter->restore();
    }

  private:
    QString textOf(int section) const {
        return model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    }
    QString groupOf(int section) const {
        return model()->headerData(section, orientation(), NumbersModel::groupRole).toString();
    }
    int firstOf(int section) const {
        while (section > 0 && !groupOf(section).isEmpty() &&
               groupOf(section - 1) == groupOf(section))
            --section;
        return section;
    }
    int lastOf(int section) const {
        while (section + 1 < count() && !groupOf(section).isEmpty() &&
               groupOf(section + 1) == groupOf(section))
            ++section;
        return section;
    }
    int linesOfGroups() const {
        int lines = 0;
        for (int section = 0; section < count(); ++section)
            lines = std::max(lines, linesOf(groupOf(section)));
        return lines;
    }
    int widthOf(const QString& text) const {
        int width = 0;
        for (const QString& line : text.split(u'\n'))
            width = std::max(width, fontMetrics().horizontalAdvance(line));
        return width;
    }
    bool isLit(int first, int last) const {
        const QModelIndex current = view_.currentIndex();
        const int at = orientation() == Qt::Horizontal ? current.column() : current.row();
        return current.isValid() && at >= first && at <= last;
    }
    void paintHead(QPainter& painter, const QRect& rect, const QString& text, bool lit) const {
        painter.fillRect(rect.adjusted(0, 0, -1, -1),
                         lit ? forms::litHeadColour : forms::headColour);
        painter.fillRect(QRect(rect.bottomLeft(), QSize(rect.width(), 1)), forms::fieldGround);
        painter.fillRect(QRect(rect.topRight(), QSize(1, rect.height())), forms::fieldGround);
        painter.setPen(palette().color(QPalette::Text));
        if (orientation() == Qt::Horizontal)
            return painter.drawText(rect, Qt::AlignCenter, text);
        const QRect inside = rect.adjusted(headPadding, 0, -headPadding, 0);
        painter.drawText(inside, Qt::AlignVCenter,
                         fontMetrics().elidedText(text, Qt::ElideRight, inside.width()));
    }

    QTableView& view_;
};

NumberHeader& headsOf(QHeaderView* header) {
    return static_cast<NumberHeader&>(*header);
}

qsizetype mostDigits(const NumberGrid& numbers) {
    std::size_t most = 0;
    for (std::size_t row = 0; row < numbers.rows.size(); ++row) {
        for (std::size_t column = 0; column < numbers.columns.size(); ++column)
            most = std::max(most, numbers.behind(row, column).size());
    }
    return QString::number(most).size();
}

} // namespace

// ---- Model ----

void NumbersModel::setNumbers(const NumberGrid* numbers) {
    beginResetModel();
    numbers_ = numbers;
    endResetModel();
}

int NumbersModel::rowCount(const QModelIndex& parent) const {
    return numbers_ != nullptr && !parent.isValid() ? int(numbers_->rows.size()) : 0;
}

int NumbersModel::columnCount(const QModelIndex& parent) const {
    return numbers_ != nullptr && !parent.isValid() ? int(numbers_->columns.size()) : 0;
}

QString NumbersModel::text(const QModelIndex& index) const {
    const std::size_t row = std::size_t(index.row());
    if (!numbers_->rows[row].applies)
        return QStringLiteral("x");
    return countText(int(numbers_->behind(row, std::size_t(index.column())).size()));
}

QVariant NumbersModel::data(const QModelIndex& index, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::FontRole: {
        QFont font;
        font.setBold(numbers_->rows[std::size_t(index.row())].isSum);
        return font;
    }
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1: %2").arg(
            numbers_->nameOf(std::size_t(index.row()), std::size_t(index.column())),
            text(index).isEmpty() ? QStringLiteral("0") : text(index));
    default:
        return {};
    }
}

QVariant NumbersModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto& heads = orientation == Qt::Horizontal ? numbers_->columns : numbers_->rows;
    const NumberHead& head = heads[std::size_t(section)];
    switch (role) {
    case Qt::DisplayRole:
        return head.text;
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return head.name;
    case groupRole:
        return head.group;
    default:
        return {};
    }
}

// ---- View ----

NumbersView::NumbersView(const QString& name, QWidget* parent) : QTableView(parent) {
    setObjectName(name);
    setHorizontalHeader(new NumberHeader(Qt::Horizontal, *this));
    setVerticalHeader(new NumberHeader(Qt::Vertical, *this));
    setModel(&numbers_);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
    forms::paleWithoutFocus(*this);
    // The heads have a font of their own.
    for (QWidget* part : {static_cast<QWidget*>(this), static_cast<QWidget*>(horizontalHeader())})
        forms::fitToFont(*part, [this] { layOut(); });
}

void NumbersView::setNumbers(const NumberGrid* numbers) {
    const QSignalBlocker quiet(this);
    numbers_.setNumbers(numbers);
    if (numbers == nullptr)
        return;
    setAccessibleName(numbers->name);
    layOut();
    const QModelIndex same = numbers_.index(place_.y(), place_.x());
    setCurrentIndex(same.isValid() ? same : firstPlace());
}

void NumbersView::layOut() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    if (numbers_.columnCount() == 0)
        return;
    const NumberHeader& heads = headsOf(horizontalHeader());
    leastWidth_ = heads.columnWidth(mostDigits(numbers()));
    horizontalHeader()->setFixedHeight(heads.extent());
    verticalHeader()->setFixedWidth(headsOf(verticalHeader()).extent());
    updateGeometries();
    fitColumns();
}

void NumbersView::fitColumns() {
    if (const int columns = numbers_.columnCount())
        horizontalHeader()->setDefaultSectionSize(
            std::max(leastWidth_, std::min(viewport()->width() / columns,
                                           forms::lettersWide(*this, widestColumn))));
}

void NumbersView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

int NumbersView::fullHeight() const {
    return horizontalHeader()->height() + verticalHeader()->length() + 2 * frameWidth();
}

QModelIndex NumbersView::firstPlace() const {
    for (int row = 0; row < numbers_.rowCount(); ++row) {
        if (!numbers().behind(std::size_t(row), 0).empty())
            return numbers_.index(row, 0);
    }
    return numbers_.index(0, 0);
}

void NumbersView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    horizontalHeader()->viewport()->update();
    verticalHeader()->viewport()->update();
    if (!current.isValid())
        return;
    place_ = {current.column(), current.row()};
    Q_EMIT numberChosen();
}

} // namespace statreturn
