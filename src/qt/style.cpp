// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/style.h"

#include <QDialog>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <optional>
#include <utility>

#include "qt/colors.h"
#include "qt/themed_icon.h"

namespace kelvor::qt {

namespace {

/// Palettes whose texts stand out so far are made for those who see little.
constexpr double highContrast = 19;

/// Of 1: how much of the selection's colour covers a button that is down.
constexpr double pressedTint = 0.35;
constexpr double buttonRadius = 2;  // pixels

bool isHighContrast(const QPalette& palette) {
    return contrast(palette.color(QPalette::Active, QPalette::WindowText),
                    palette.color(QPalette::Active, QPalette::Window)) >= highContrast;
}

/// None where the style's own outlines do; they are darker than the window, so that none is seen on a dark one. What is
/// as readable as a text is still seen on the pages of tabs, which are brighter than their window.
std::optional<QColor> outlineColor(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    const QColor ink = palette.color(QPalette::WindowText);
    if (isHighContrast(palette)) return ink;
    if (window.lightness() >= ink.lightness()) return std::nullopt;
    return readable(window, ink, window);
}

void outline(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter& painter) {
    constexpr QStyle::PrimitiveElement outlined[] = {QStyle::PE_FrameLineEdit, QStyle::PE_Frame,
                                                     QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton};
    if (std::find(std::begin(outlined), std::end(outlined), element) == std::end(outlined)) return;
    const bool showsFocus = element == QStyle::PE_FrameLineEdit && option.state.testFlag(QStyle::State_HasFocus);
    const auto color = outlineColor(option.palette);
    if (showsFocus || !color) return;
    painter.save();
    painter.setPen(*color);
    painter.setBrush(Qt::NoBrush);
    const QRect edge = option.rect.adjusted(0, 0, -1, -1);
    if (element == QStyle::PE_IndicatorRadioButton) {
        constexpr double middleOfPixel = 0.5;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawEllipse(QRectF(edge).translated(middleOfPixel, middleOfPixel));
    } else {
        painter.drawRect(edge);
    }
    painter.restore();
}

void tintPressed(const QStyleOption& option, QPainter& painter) {
    QColor tint = option.palette.color(QPalette::Highlight);
    tint.setAlphaF(static_cast<float>(pressedTint));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint);
    painter.drawRoundedRect(QRectF(option.rect), buttonRadius, buttonRadius);
    painter.restore();
}

bool isEditBoxOfDialog(const QWidget* widget) {
    return widget && widget->inherits("QsciScintillaBase") && qobject_cast<const QDialog*>(widget->window());
}

}  // namespace

void Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},
    };
    for (const auto& [text, background] : texts) {
        const QColor ink = palette.color(QPalette::Active, text);
        const QColor paper = palette.color(QPalette::Disabled, background);
        if (contrast(ink, paper) >= highContrast && !isReadable(palette.color(QPalette::Disabled, text), paper))
            palette.setColor(QPalette::Disabled, text, readable(paper, ink, paper));
    }
    // Themes that know no placeholders leave them as a light palette has them.
    const QColor base = palette.color(QPalette::Base);
    if (!isReadable(palette.color(QPalette::PlaceholderText), base))
        palette.setColor(QPalette::PlaceholderText, readable(base, palette.color(QPalette::Text), base));
}

QIcon Style::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    // What a narrow bar shows for the rest of it; the style's own arrow is black on every palette. Each bar asks for it
    // when it is made, and the style would read several files.
    const bool isMore = icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton;
    return isMore ? themedIcon(QStringLiteral(":/toolbar/more.svg")) : QProxyStyle::standardIcon(icon, option, widget);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* more) const {
    const auto lines = hint == SH_Table_GridLineColor && option ? outlineColor(option->palette) : std::nullopt;
    return lines ? static_cast<int>(lines->rgba()) : QProxyStyle::styleHint(hint, option, widget, more);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    // All buttons of the frame's bars are to be seen on a small screen.
    return metric == PM_ToolBarItemSpacing ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    if (element == PE_Frame && isEditBoxOfDialog(widget)) element = PE_FrameLineEdit;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    outline(element, *option, *painter);
    if (element == PE_PanelButtonTool && option->state.testFlags(State_On | State_Enabled))
        tintPressed(*option, *painter);
}

}  // namespace kelvor::qt
