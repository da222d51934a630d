#pragma once

#include <QProxyStyle>
#include <QStyleOption>

class QStyleOptionComboBox;

namespace forms {

/// Radius of the corners, in pixels.
constexpr qreal roundFields = 2;
constexpr qreal roundButtons = 4;

/// Fusion with flat buttons, headers and drop-downs, so that the colours of the screens come out as
/// they are, with bold titles of groups and one rhythm of spacing (Metrics.h). Edges are left to
/// those who draw over it.
class CalmStyle : public QProxyStyle {
    Q_OBJECT
  public:
    CalmStyle();
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    /// The pictures of message boxes are drawn, so that they are sharp on every screen.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;

  private:
    void drawButton(const QStyleOption& option, QPainter& painter) const;
    void drawHeaderLabel(QStyleOptionHeader label, QPainter& painter, const QWidget* widget) const;
    void drawHeader(const QStyleOption& option, QPainter& painter, bool section) const;
    void drawDropDown(const QStyleOptionComboBox& option, QPainter& painter) const;
};

} // namespace forms
