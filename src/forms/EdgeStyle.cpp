#include "forms/EdgeStyle.h"

#include "forms/Colours.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionComplex>
#include <QStyleOptionFocusRect>

namespace forms {

namespace {

void drawEdge(QPainter& painter, const QRect& around, const QColor& colour, int width,
              qreal roundness) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    const qreal inset = width / 2.0;
    painter.drawRoundedRect(QRectF(around).adjusted(inset, inset, -inset, -inset), roundness,
                            roundness);
    painter.restore();
}

void drawEdge(QPainter& painter, const QStyleOption& option, qreal roundness = roundFields) {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool focused = enabled && option.state.testFlag(QStyle::State_HasFocus);
    drawEdge(painter, option.rect,
             focused   ? focusColour
             : enabled ? edgeColour
                       : idleEdgeColour,
             focused ? focusWidth : 1, roundness);
}

/// Fusion takes the edges of small marks from the colour of the screen.
QStyleOptionButton withEdges(const QStyleOptionButton& mark) {
    constexpr int darkerInFusion = 140;
    QStyleOptionButton edged = mark;
    edged.palette.setColor(QPalette::Window, edgeColour.lighter(darkerInFusion));
    return edged;
}

void drawFocus(QPainter& painter, const QStyleOption& option) {
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
    const bool onChosen = focus != nullptr && focus->backgroundColor == chosenGround;
    drawEdge(painter, option.rect, onChosen ? chosenInk : focusColour, onChosen ? 1 : focusWidth,
             roundFields);
}

bool isScrolled(const QWidget* widget) {
    return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
}

} // namespace

void EdgeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_FrameLineEdit:
        return drawEdge(*painter, *option);
    case PE_FrameTabWidget:
        painter->fillRect(option->rect, screenColour);
        return drawEdge(*painter, option->rect, idleEdgeColour, 1, 0);
    case PE_FrameFocusRect:
        return drawFocus(*painter, *option);
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
        if (const auto* mark = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            const QStyleOptionButton edged = withEdges(*mark);
            return CalmStyle::drawPrimitive(element, &edged, painter, widget);
        }
        break;
    default:
        break;
    }
    CalmStyle::drawPrimitive(element, option, painter, widget);
}

void EdgeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_ShapedFrame && isScrolled(widget) &&
        static_cast<const QFrame*>(widget)->frameShape() == QFrame::StyledPanel)
        return drawEdge(*painter, *option);
    CalmStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButtonBevel)
        drawEdge(*painter, *option, roundButtons);
    const bool isTab = element == CE_TabBarTabShape && option->state.testFlag(State_Selected);
    if (isTab && widget != nullptr && widget->hasFocus())
        drawEdge(*painter, option->rect.adjusted(2, 2, -2, -2), focusColour, focusWidth,
                 roundFields);
}

void EdgeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    CalmStyle::drawComplexControl(control, option, painter, widget);
    const bool isFocusedTool = control == CC_ToolButton && option->state.testFlag(State_HasFocus);
    if (control == CC_ComboBox || control == CC_SpinBox || isFocusedTool)
        drawEdge(*painter, *option);
}

int EdgeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    if (metric == PM_DefaultFrameWidth && isScrolled(widget))
        return focusWidth;
    return CalmStyle::pixelMetric(metric, option, widget);
}

} // namespace forms
