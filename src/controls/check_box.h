// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// A box to tick; its caption holds "&" before the access key.
class CheckBox : public Control {
public:
    CheckBox(Form& form, std::string name, std::string caption, const Handler<>& click = {})
        : Control(form, std::move(name)), caption_(std::move(caption)) {
        click.connectTo(clicked, form);
    }

    const std::string& caption() const { return caption_; }

    bool value() const { return value_; }
    /// Raises `clicked` when the value differs.
    void setValue(bool value) {
        if (change(value_, value, Aspect::value)) clicked.raise();
    }

    /// The user's press, which turns the value; nothing happens while the box is disabled or hidden.
    void click() {
        if (enabled() && visible()) setValue(!value_);
    }

    /// The value has changed.
    Event<> clicked;

private:
    std::string caption_;
    bool value_ = false;
};

}  // namespace kelvor
