#include "tour/ScreenCheck.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTableView>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <vector>

namespace tour {

namespace {

constexpr int longestLine = 100;
/// What a line of text needs beside its letters: the frame, and the margins around the text.
constexpr int aroundLine = 6;

QString nameOf(const QWidget& widget) {
    const QWidget* named = &widget;
    while (named->objectName().isEmpty() && named->parentWidget() != nullptr)
        named = named->parentWidget();
    QString text = widget.property("text").toString();
    if (text.isEmpty())
        text = widget.property("currentText").toString();
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(QLatin1StringView(widget.metaObject()->className()), named->objectName(), text);
}

template <typename... Classes>
bool isAnyOf(const QWidget& widget) {
    return (... || (qobject_cast<const Classes*>(&widget) != nullptr));
}

bool isControl(const QWidget& widget) {
    return isAnyOf<QAbstractButton, QLabel, QLineEdit, QComboBox, QProgressBar>(widget);
}

const QAbstractScrollArea* areaAround(const QWidget& widget) {
    return qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
}

/// What lies in the viewport of an area, or moves with it beside the viewport, may be larger.
bool leavesParent(const QWidget& widget) {
    const QWidget& parent = *widget.parentWidget();
    const QRect outside = widget.geometry();
    const auto* area = areaAround(parent);
    if (area == nullptr)
        return !parent.rect().contains(outside);
    const bool scrolls = area->viewport() != &parent ||
                         (area->horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff &&
                          area->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff);
    return !scrolls && !parent.rect().contains(outside);
}

bool isOutOfSight(const QWidget& button) {
    QRect seen = button.rect();
    for (const QWidget* above = button.parentWidget(); above != nullptr;
         above = above->isWindow() ? nullptr : above->parentWidget())
        seen &= QRect(button.mapFrom(above, QPoint()), above->size());
    return seen != button.rect();
}

int textRoom(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    return box.style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
        .width();
}

bool isWiderThan(const QWidget& widget, const QString& text, int room) {
    return widget.fontMetrics().horizontalAdvance(text) > room;
}

bool cutsText(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget); label && label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return isWiderThan(*line, line->displayText(), line->width() - aroundLine);
    // Where one is typed into, its line is a control of its own.
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return !box->isEditable() && isWiderThan(*box, box->currentText(), textRoom(*box));
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return isWiderThan(*group, group->title(), group->width());
    // The button that a line carries is a picture without a text.
    if (qobject_cast<const QLineEdit*>(widget.parentWidget()) != nullptr)
        return false;
    const QSize least = widget.minimumSizeHint();
    return isControl(widget) &&
           (widget.width() < least.width() || widget.height() < least.height());
}

bool cutsHead(const QHeaderView& heads) {
    for (int section = 0; section < heads.count(); ++section) {
        const QString text =
            heads.model()->headerData(section, heads.orientation(), Qt::DisplayRole).toString();
        if (heads.orientation() == Qt::Horizontal && !text.contains(u'\n') &&
            isWiderThan(heads, text, heads.sectionSize(section)))
            return true;
    }
    return false;
}

bool cutsRows(const QListView& list) {
    constexpr int mostRows = 100;
    const int rows = list.model() != nullptr ? std::min(list.model()->rowCount(), mostRows) : 0;
    const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
    for (int row = 0; row < rows && list.horizontalScrollBar()->maximum() == 0; ++row) {
        const QString text = list.model()->index(row, 0).data().toString();
        if (isWiderThan(list, text, list.viewport()->width() - 2 * margin))
            return true;
    }
    return false;
}

bool hasLongLine(const QTextEdit& text) {
    for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next()) {
        for (int line = 0; line < block.layout()->lineCount(); ++line) {
            if (block.layout()->lineAt(line).textLength() > longestLine)
                return true;
        }
    }
    return false;
}

/// Rules for a control of one class.
const char* faultOfItsKind(const QWidget& widget) {
    const auto* heads = qobject_cast<const QHeaderView*>(&widget);
    const auto* list = qobject_cast<const QListView*>(&widget);
    const auto* text = qobject_cast<const QTextEdit*>(&widget);
    if ((heads != nullptr && cutsHead(*heads)) || (list != nullptr && cutsRows(*list)) ||
        cutsText(widget))
        return "cuts its text";
    if (text != nullptr && hasLongLine(*text))
        return "has a line of more than 100 letters";
    if (isAnyOf<QPushButton>(widget) && isOutOfSight(widget))
        return "is out of sight";
    // What a bar has no room for hides behind a button of the toolkit.
    if (widget.objectName().endsWith(QStringLiteral("_ext_button")))
        return "hides what there is no room for";
    return nullptr;
}

const char* faultOf(const QWidget& widget) {
    return leavesParent(widget) ? "leaves what it lies in" : faultOfItsKind(widget);
}

QStringList overlaps(const std::vector<const QWidget*>& controls) {
    QStringList found;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            if (controls[i]->parentWidget() == controls[j]->parentWidget() &&
                controls[i]->geometry().intersects(controls[j]->geometry()))
                found << nameOf(*controls[i]) + QStringLiteral(" lies on ") + nameOf(*controls[j]);
        }
    }
    return found;
}

} // namespace

QStringList screenFaults(const QWidget& window) {
    QStringList found;
    // The frame that the platform pretends to have is not seen.
    if (const QRect place(window.pos(), window.size());
        !window.screen()->availableGeometry().contains(place))
        found << QStringLiteral("leaves the screen: %1x%2 at %3, %4")
                     .arg(place.width())
                     .arg(place.height())
                     .arg(place.x())
                     .arg(place.y());
    std::vector<const QWidget*> controls;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->isWindow() || widget->window() != &window)
            continue;
        if (const char* fault = faultOf(*widget))
            found << nameOf(*widget) + QLatin1Char(' ') + QLatin1StringView(fault);
        if (isControl(*widget))
            controls.push_back(widget);
    }
    found << overlaps(controls);
    for (QString& fault : found)
        fault.prepend(window.objectName() + QStringLiteral(": "));
    return found;
}

} // namespace tour
