#include "forms/CalmStyle.h"

#include "forms/Colours.h"
#include "forms/Metrics.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>

namespace forms {

namespace {

/// Of a drop-down, with the arrow in it.
constexpr int arrowWidth = 22;
constexpr QSize buttonPadding(16, 4);

QColor buttonFill(const QStyleOption& option) {
    const QColor rest = option.palette.color(QPalette::Button);
    if (!option.state.testFlag(QStyle::State_Enabled))
        return rest;
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        return rest.darker(110);
    return option.state.testFlag(QStyle::State_MouseOver) ? rest.lighter(106) : rest;
}

/// The option with the font that the titles of groups have.
QStyleOptionGroupBox titled(const QStyleOptionComplex& option, const QWidget* widget) {
    QStyleOptionGroupBox group = *qstyleoption_cast<const QStyleOptionGroupBox*>(&option);
    QFont bold = widget != nullptr ? widget->font() : QFont();
    bold.setBold(true);
    group.fontMetrics = QFontMetrics(bold);
    return group;
}

void drawArrow(QPainter& painter, const QPointF& centre, const QColor& colour) {
    QPainterPath arrow(centre + QPointF(-4, -2));
    arrow.lineTo(centre + QPointF(4, -2));
    arrow.lineTo(centre + QPointF(0, 2.5));
    painter.fillPath(arrow, colour);
}

} // namespace

CalmStyle::CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void CalmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_PushButtonBevel)
        drawButton(*option, *painter);
    else if (element == CE_HeaderSection || element == CE_HeaderEmptyArea)
        drawHeader(*option, *painter, element == CE_HeaderSection);
    else if (const auto* head = qstyleoption_cast<const QStyleOptionHeader*>(option);
             head != nullptr && element == CE_HeaderLabel)
        drawHeaderLabel(*head, *painter, widget);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

/// The words of a head begin where the texts of its cells do. (The toolkit doesn't ask the style of
/// the program for their place.)
void CalmStyle::drawHeaderLabel(QStyleOptionHeader label, QPainter& painter,
                                const QWidget* widget) const {
    const int more = gap - pixelMetric(PM_HeaderMargin, &label, widget);
    label.rect.adjust(more, 0, -more, 0);
    QProxyStyle::drawControl(CE_HeaderLabel, &label, &painter, widget);
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

void CalmStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    if (const auto* dropDown = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        dropDown != nullptr && control == CC_ComboBox)
        return drawDropDown(*dropDown, *painter);
    if (control != CC_GroupBox)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    const QStyleOptionGroupBox group = titled(*option, widget);
    QFont bold = painter->font();
    bold.setBold(true);
    painter->setFont(bold);
    QProxyStyle::drawComplexControl(control, &group, painter, widget);
}

QRect CalmStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const {
    if (control == CC_GroupBox) {
        const QStyleOptionGroupBox group = titled(*option, widget);
        return QProxyStyle::subControlRect(control, &group, part, widget);
    }
    if (control != CC_ComboBox || (part != SC_ComboBoxArrow && part != SC_ComboBoxEditField))
        return QProxyStyle::subControlRect(control, option, part, widget);
    QRect place = option->rect;
    // One without a field is all arrow.
    if (part == SC_ComboBoxArrow)
        place.setLeft(place.width() < 2 * arrowWidth ? place.left()
                                                     : place.right() + 1 - arrowWidth);
    else
        place.adjust(2, 2, -arrowWidth - 1, -2);
    return visualRect(option->direction, option->rect, place);
}

QSize CalmStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_PushButton ? size + buttonPadding : size;
}

int CalmStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
    // Where the texts of cells begin, which add one; heads begin there, too.
    case PM_FocusFrameHMargin:
        return gap - 1;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return gap;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return widget != nullptr && widget->isWindow() ? windowMargin : gap;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CalmStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
    // Buttons are told by their words everywhere, and lists open below their field.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QIcon CalmStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                              const QWidget* widget) const {
    switch (icon) {
    case SP_MessageBoxInformation:
        return QIcon(QStringLiteral(":/forms/informacia.svg"));
    case SP_MessageBoxQuestion:
        return QIcon(QStringLiteral(":/forms/otazka.svg"));
    case SP_MessageBoxWarning:
        return QIcon(QStringLiteral(":/forms/upozornenie.svg"));
    case SP_MessageBoxCritical:
        return QIcon(QStringLiteral(":/forms/chyba.svg"));
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

/// A field with an arrow in its right end, of which the field may be missing.
void CalmStyle::drawDropDown(const QStyleOptionComboBox& option, QPainter& painter) const {
    const QRect arrow = subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, nullptr);
    QPainterPath outline;
    outline.addRoundedRect(option.rect, roundFields, roundFields);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, option.palette.brush(QPalette::Base));
    painter.setClipRect(arrow);
    painter.fillPath(outline, buttonFill(option));
    painter.setClipping(false);
    drawArrow(painter, QRectF(arrow).center(), option.palette.color(QPalette::ButtonText));
    painter.restore();
}

void CalmStyle::drawButton(const QStyleOption& option, QPainter& painter) const {
    QPainterPath outline;
    outline.addRoundedRect(option.rect, roundButtons, roundButtons);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, buttonFill(option));
    painter.restore();
}

void CalmStyle::drawHeader(const QStyleOption& option, QPainter& painter, bool section) const {
    const QColor line = option.palette.color(QPalette::Button);
    const QRect rect = option.rect;
    painter.fillRect(rect, headColour);
    painter.fillRect(QRect(rect.bottomLeft(), QSize(rect.width(), 1)), line);
    if (section)
        painter.fillRect(rect.right(), rect.top() + 4, 1, rect.height() - 8, line);
}

} // namespace forms
