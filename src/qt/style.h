// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace kelvor::qt {

/// The desktop's style, with tool buttons side by side, and plainer where some palettes leave things hard to see:
/// disabled texts and pictures in high contrast, outlines there and on dark windows, placeholders, tool buttons that
/// are down, edit boxes of dialogs that have the keyboard.
class Style : public QProxyStyle {
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace kelvor::qt
