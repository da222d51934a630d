#include "forms/RowLook.h"

#include "forms/Colours.h"
#include "forms/Metrics.h"
#include "forms/Twips.h"

#include <QEvent>
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

/// The colours of what is chosen follow the focus of the view that owns this.
class FocusPaler : public QObject {
  public:
    explicit FocusPaler(QTableView& view) : QObject(&view), view_(view) {
        view.installEventFilter(this);
        follow(view.hasFocus());
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            follow(event->type() == QEvent::FocusIn);
        return false;
    }

  private:
    void follow(bool focused) {
        QPalette palette;
        if (!focused) {
            palette.setColor(QPalette::Highlight, headColour);
            palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
        }
        view_.setPalette(palette);
    }

    QTableView& view_;
};

} // namespace

void paleWithoutFocus(QTableView& table) {
    new FocusPaler(table);
}

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
    table.horizontalHeader()->setHighlightSections(false);
    fitToFont(table, [&table] {
        const int line = table.fontMetrics().height();
        table.verticalHeader()->setDefaultSectionSize(line + rowPadding);
        table.horizontalHeader()->setFixedHeight(line + headerPadding);
    });
    table.horizontalHeader()->setMinimumSectionSize(pixels(300));
}

} // namespace forms
