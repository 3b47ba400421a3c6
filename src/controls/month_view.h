// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control.h"
#include "controls/handler.h"
#include "platform/dates.h"

namespace kelvor {

/// A calendar of one month in which a day is chosen.
class MonthView : public Control {
public:
    MonthView(Form& form, std::string name, const Handler<>& choice = {}) : Control(form, std::move(name)) {
        choice.connectTo(changed, form);
    }

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
