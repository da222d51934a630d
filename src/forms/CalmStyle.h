#pragma once

#include <QProxyStyle>

namespace forms {

/// Fusion with flat buttons and headers, so that the colours of the screens come out as they are.
class CalmStyle : public QProxyStyle {
    Q_OBJECT
  public:
    CalmStyle();
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;

  private:
    void drawButton(const QStyleOption& option, QPainter& painter) const;
    void drawHeader(const QStyleOption& option, QPainter& painter, bool section) const;
};

} // namespace forms
