// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>

namespace kelvor::qt {

/// The key code of a key event: letters and digits by their own code, digits of the upper row in any shift state;
/// 0 for a key that has none.
int keyCodeOf(const QKeyEvent& event);

/// The sum of modifier values.
int shiftBits(Qt::KeyboardModifiers modifiers);

}  // namespace kelvor::qt
