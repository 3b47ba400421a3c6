// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// A bar whose thumb stands for a value from 0 to a maximum.
class ScrollBar : public Control {
public:
    struct Handlers {
        Handler<> changed;
        Handler<> scrolled;
    };

    ScrollBar(Form& form, std::string name, const Handlers& handlers = {}) : Control(form, std::move(name)) {
        handlers.changed.connectTo(changed, form);
        handlers.scrolled.connectTo(scrolled, form);
    }

    int maximum() const { return maximum_; }
    /// A value above it comes down to it, one below 0 leaves nothing to scroll. What does not fit 16 bits with a sign
    /// is an error 6, and the maximum stays.
    void setMaximum(int maximum);

    /// How far a press beside the thumb goes.
    int largeChange() const { return largeChange_; }
    void setLargeChange(int largeChange) { change(largeChange_, largeChange, Aspect::value); }

    int value() const { return value_; }
    /// Raises `changed` when it differs; what lies outside comes to the nearer end.
    void setValue(int value);

    /// The user's drag of the thumb, which is told by `scrolled`.
    void drag(int value);

    Event<> changed;
    Event<> scrolled;

private:
    bool moveTo(int value);

    int maximum_ = 0;
    int largeChange_ = 1;
    int value_ = 0;
};

}  // namespace kelvor
