#include "forms/CalmStyle.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace forms {

namespace {

constexpr qreal roundness = 4;
constexpr QColor headerGround(226, 226, 243);
/// Where the texts of the cells begin, too.
constexpr int headerMargin = 3;

QColor buttonFill(const QStyleOption& option) {
    const QColor rest = option.palette.color(QPalette::Button);
    if (!option.state.testFlag(QStyle::State_Enabled))
        return rest;
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        return rest.darker(110);
    return option.state.testFlag(QStyle::State_MouseOver) ? rest.lighter(106) : rest;
}

bool isDefault(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

} // namespace

CalmStyle::CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void CalmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_PushButtonBevel)
        drawButton(*option, *painter);
    else if (element == CE_HeaderSection || element == CE_HeaderEmptyArea)
        drawHeader(*option, *painter, element == CE_HeaderSection);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

/// The arrow of a sorted head points up where the rows ascend.
void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    const auto* head = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (element != PE_IndicatorHeaderArrow || head == nullptr)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool ascends = head->sortIndicator == QStyleOptionHeader::SortDown;
    QProxyStyle::drawPrimitive(ascends ? PE_IndicatorArrowUp : PE_IndicatorArrowDown, option,
                               painter, widget);
}

int CalmStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    return metric == PM_HeaderMargin ? headerMargin
                                     : QProxyStyle::pixelMetric(metric, option, widget);
}

void CalmStyle::drawButton(const QStyleOption& option, QPainter& painter) const {
    const bool focused = option.state.testFlag(State_HasFocus);
    const bool strong = focused || isDefault(option);
    const QColor edge = option.palette.color(QPalette::Button).darker(strong ? 190 : 125);
    const qreal width = focused ? 2 : 1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, width));
    painter.setBrush(buttonFill(option));
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), roundness,
                            roundness);
    painter.restore();
}

void CalmStyle::drawHeader(const QStyleOption& option, QPainter& painter, bool section) const {
    const QColor line = option.palette.color(QPalette::Button);
    const QRect rect = option.rect;
    painter.fillRect(rect, headerGround);
    painter.fillRect(QRect(rect.bottomLeft(), QSize(rect.width(), 1)), line);
    if (section)
        painter.fillRect(rect.right(), rect.top() + 4, 1, rect.height() - 8, line);
}

} // namespace forms
