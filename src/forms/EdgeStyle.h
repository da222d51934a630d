#pragma once

#include "forms/CalmStyle.h"

namespace forms {

/// Edges that everybody sees: of fields, lists and buttons, of what can't be used now, and a strong
/// one around what has the focus, however it came there.
class EdgeStyle : public CalmStyle {
    Q_OBJECT
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
};

} // namespace forms
