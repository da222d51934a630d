#include "report/PageAccess.h"

#include "report/PageView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QScrollBar>

namespace report {

namespace {

/// A page as a document that can only be read. Offsets count characters of its text.
class PageAccess : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit PageAccess(PageView& view)
        : QAccessibleWidget(&view, QAccessible::Document), view_(view) {}

    // The canvas is what this is the text of.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? view_.pageText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    int characterCount() const override { return int(view_.pageText().size()); }
    QString text(int from, int to) const override { return view_.pageText().mid(from, to - from); }
    int cursorPosition() const override { return cursor_; }
    void setCursorPosition(int position) override { cursor_ = position; }
    // Nothing is selected on a page, and its letters have no places of their own here.
    int selectionCount() const override { return 0; }
    void selection(int, int* from, int* to) const override { *from = *to = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return 0; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* from, int* to) const override {
        *from = 0;
        *to = characterCount();
        return {};
    }

  private:
    PageView& view_;
    int cursor_ = 0;
};

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    if (className == QLatin1String("report::PageView"))
        return new PageAccess(*static_cast<PageView*>(object));
    return nullptr;
}

} // namespace

void letPagesBeRead() {
    static const bool installed = [] {
        QAccessible::installFactory(&makeAccess);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace report
