// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace zor {

/// A button with this property is the strong one of its window.
inline constexpr const char* strongProperty = "strong";

/// The toolkit's Fusion style with what it lacks for a bench: flat bars and title bars, and ticks, radio
/// circles and fields whose outlines can be seen in the dark too.
class InstrumentStyle : public QProxyStyle {
  public:
    InstrumentStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
};

} // namespace zor
