#include "platform/qt/style.h"

#include <QDialog>
#include <QPainter>
#include <QStyleOption>
#include <utility>

#include "platform/qt/colors.h"

namespace kelvor::qt {

namespace {

/// Palettes whose texts stand out so far are made for those who see little.
constexpr double highContrast = 19;
/// What texts need to be read without effort.
constexpr double readable = 4.5;

/// Of 1: how much of the selection's colour covers a button that is down.
constexpr double pressedTint = 0.35;
constexpr double buttonRadius = 2;  // pixels

/// The palest colour from the background to the text that can still be read.
QColor paleText(const QColor& text, const QColor& background) {
    constexpr double step = 0.05;
    for (double part = step; part < 1; part += step) {
        const QColor pale = between(background, text, part);
        if (contrast(pale, background) >= readable) return pale;
    }
    return text;
}

bool isEditBoxOfDialog(const QWidget* widget) {
    return widget && widget->inherits("QsciScintillaBase") && qobject_cast<const QDialog*>(widget->window());
}

}  // namespace

void Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {{QPalette::WindowText, QPalette::Window},
                                                                             {QPalette::Text, QPalette::Base},
                                                                             {QPalette::ButtonText, QPalette::Button}};
    for (const auto& [text, background] : texts) {
        const QColor ink = palette.color(QPalette::Active, text);
        const QColor paper = palette.color(QPalette::Disabled, background);
        if (contrast(ink, paper) < highContrast || contrast(palette.color(QPalette::Disabled, text), paper) >= readable)
            continue;
        palette.setColor(QPalette::Disabled, text, paleText(ink, paper));
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    // All buttons of the frame's bars are to be seen on a small screen.
    return metric == PM_ToolBarItemSpacing ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    if (element == PE_Frame && isEditBoxOfDialog(widget)) element = PE_FrameLineEdit;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_PanelButtonTool || !option->state.testFlags(State_On | State_Enabled)) return;
    QColor tint = option->palette.color(QPalette::Highlight);
    tint.setAlphaF(static_cast<float>(pressedTint));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(tint);
    painter->drawRoundedRect(QRectF(option->rect), buttonRadius, buttonRadius);
    painter->restore();
}

}  // namespace kelvor::qt
