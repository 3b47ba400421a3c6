// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control.h"

namespace kelvor {

/// How far a long work has come.
class ProgressBar : public Control {
public:
    using Control::Control;

    int minimum() const { return minimum_; }
    int maximum() const { return maximum_; }
    /// The value becomes the minimum.
    void setRange(int minimum, int maximum) {
        minimum_ = minimum;
        maximum_ = maximum;
        value_ = minimum;
        tell(Aspect::value);
    }

    int value() const { return value_; }
    void setValue(int value) { change(value_, value, Aspect::value); }

private:
    int minimum_ = 0;
    int maximum_ = 100;
    int value_ = 0;
};

}  // namespace kelvor
