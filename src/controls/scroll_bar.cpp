// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scroll_bar.h"

#include <algorithm>

#include "base/int16.h"

namespace kelvor {

void ScrollBar::setMaximum(int maximum) {
    change(maximum_, int{toInt16(maximum)}, Aspect::value);
    setValue(value_);
}

void ScrollBar::setValue(int value) {
    if (moveTo(value)) changed.raise();
}

void ScrollBar::drag(int value) {
    if (moveTo(value)) scrolled.raise();
}

bool ScrollBar::moveTo(int value) {
    return change(value_, std::clamp(value, 0, std::max(maximum_, 0)), Aspect::value);
}

}  // namespace kelvor
