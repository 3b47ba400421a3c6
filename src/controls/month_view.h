#pragma once

#include "controls/control.h"
#include "platform/dates.h"

namespace kelvor {

/// A calendar of one month in which a day is chosen.
class MonthView : public Control {
public:
    using Control::Control;

    const Date& value() const { return value_; }
    /// Raises `changed` when the day differs; also the user's act.
    void setValue(const Date& value) {
        if (change(value_, value, Aspect::value)) changed.raise();
    }

    Event<> changed;

private:
    Date value_;
};

}  // namespace kelvor
