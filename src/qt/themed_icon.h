// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace kelvor::qt {

/// The ink that the drawings are made with; each shows the palette's text colour in its place: that of buttons, or in a
/// selected row that of the selection.
constexpr char drawnInk[] = "#202020";

/// The icon of an SVG drawing among the resources. Its ink follows the application's palette at every painting, so
/// that it is seen on light and dark desktops; its other colours stay, and pale towards the ink where it is
/// disabled. The drawing is read at the first painting.
QIcon themedIcon(const QString& file);

}  // namespace kelvor::qt
