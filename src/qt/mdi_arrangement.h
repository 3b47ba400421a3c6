// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QSize>
#include <vector>

namespace kelvor::qt {

/// Where `count` windows stand, in pixels of their area, in the order of the windows.

/// Beside each other without a gap or an overlap. Horizontal tiles are wide and lie below each other, vertical ones are
/// tall and stand side by side; where they would become too small there are several columns (rows) of them.
std::vector<QRect> tiles(const QSize& area, int count, Qt::Orientation orientation);

/// Each one `step` further down and to the right, from the corner again when no more fit.
std::vector<QRect> cascade(const QSize& area, int count, int step);

/// Minimised windows of one size along the bottom edge, row upon row.
std::vector<QRect> iconPlaces(const QSize& area, int count, const QSize& icon);

/// The height that the rows of iconPlaces take from the area.
int iconHeight(const QSize& area, int count, const QSize& icon);

}  // namespace kelvor::qt
