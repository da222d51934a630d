#include "forms/RowLook.h"

#include "forms/Twips.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableView>

namespace forms {

namespace {

constexpr int rowPadding = 7;
constexpr int headerPadding = 10;

/// The row is chosen as a whole: no cell of it stands out.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_HasFocus, false);
    }
};

} // namespace

void lookLikeList(QTableView& table) {
    table.setSelectionBehavior(QTableView::SelectRows);
    table.setSelectionMode(QTableView::SingleSelection);
    table.setEditTriggers(QTableView::NoEditTriggers);
    table.setTabKeyNavigation(false);
    table.setItemDelegate(new RowDelegate(&table));
    table.setAlternatingRowColors(true);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setHorizontalScrollMode(QTableView::ScrollPerPixel);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + rowPadding);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setFixedHeight(table.fontMetrics().height() + headerPadding);
    table.horizontalHeader()->setMinimumSectionSize(pixels(300));
}

} // namespace forms
