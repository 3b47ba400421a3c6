// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control.h"

namespace kelvor {

class TextBox;

/// Two arrows beside a field that raise and lower the number in it by 1, within a range. What is typed may lie outside.
class UpDown : public Control {
public:
    UpDown(Form& form, std::string name, TextBox& buddy, int minimum, int maximum)
        : Control(form, std::move(name)), buddy_(buddy), minimum_(minimum), maximum_(maximum) {}

    TextBox& buddy() const { return buddy_; }

    int maximum() const { return maximum_; }
    /// The field keeps its number.
    void setMaximum(int maximum) { maximum_ = maximum; }

    /// The user's acts. A number outside the range comes to its nearer end, as a text that begins with none comes to
    /// the least. Nothing happens while the arrows are disabled or hidden.
    void stepUp() { step(1); }
    void stepDown() { step(-1); }

private:
    void step(int by);

    TextBox& buddy_;
    int minimum_;
    int maximum_;
};

}  // namespace kelvor
