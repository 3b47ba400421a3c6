// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class QWidget;

namespace kelvor::qt {

/// Moves each dialog of `window`, and of its dialogs, that covers a part of `area` to the nearest place on the screen
/// where it does not. One that has no such place stays, and so do all under Wayland, where a program cannot move its
/// windows.
/// @param area  in places of the screen; an empty one is covered by nothing
void moveWindowsAside(const QRect& area, const QWidget& window);

}  // namespace kelvor::qt
