// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control.h"

namespace kelvor {

/// A bar that is docked at a side of the frame.
class SideBar : public Control {
public:
    static constexpr int left = 3;
    static constexpr int right = 4;

    using Control::Control;

    int align() const { return align_; }
    void setAlign(int align) { change(align_, align, Aspect::value); }

    /// The user wants the bar away; who hears it decides.
    Event<> closeClicked;

private:
    int align_ = left;
};

}  // namespace kelvor
