// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/covering_windows.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <algorithm>
#include <array>
#include <optional>

namespace kelvor::qt {

namespace {

/// Left between a window and what it is to show, in pixels: as much as the frame of a window that has none yet.
constexpr int gap = 32;

bool standsOver(const QWidget& dialog, const QWidget& window) {
    const QWidget* owner = dialog.parentWidget();
    while (owner && owner->window() != &window) owner = owner->window()->parentWidget();
    return owner != nullptr;
}

/// The nearest place of a window of that frame beside, above or below `area`.
std::optional<QPoint> placeBeside(const QRect& area, const QRect& frame, const QRect& screen) {
    // A window that leaves the screen at one side is brought back with it.
    const int x = std::clamp(frame.x(), screen.left(), std::max(screen.left(), screen.right() + 1 - frame.width()));
    const int y = std::clamp(frame.y(), screen.top(), std::max(screen.top(), screen.bottom() + 1 - frame.height()));
    std::array places = {QPoint(x, area.bottom() + gap), QPoint(x, area.top() - gap - frame.height()),
                         QPoint(area.right() + gap, y), QPoint(area.left() - gap - frame.width(), y)};
    const auto distance = [&](QPoint place) { return (place - frame.topLeft()).manhattanLength(); };
    std::sort(places.begin(), places.end(),
              [&](QPoint left, QPoint right) { return distance(left) < distance(right); });
    for (const QPoint place : places)
        if (screen.contains(QRect(place, frame.size()))) return place;
    return {};
}

}  // namespace

void moveWindowsAside(const QRect& area, const QWidget& window) {
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (!qobject_cast<QDialog*>(each) || !each->isVisible() || !standsOver(*each, window)) continue;
        const QRect frame = each->frameGeometry();
        if (!frame.intersects(area)) continue;
        if (const auto place = placeBeside(area, frame, window.screen()->availableGeometry())) each->move(*place);
    }
}

}  // namespace kelvor::qt
