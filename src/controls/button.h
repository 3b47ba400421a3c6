// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// A push button; its caption holds "&" before the access key.
class Button : public Control {
public:
    Button(Form& form, std::string name, std::string caption, const Handler<>& click = {})
        : Control(form, std::move(name)), caption_(std::move(caption)) {
        click.connectTo(clicked, form);
    }

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::caption); }

    /// Whether Enter presses it wherever the focus is in the form, unless that control has a use for Enter, as it was
    /// told while the form is open. The one that Enter presses at first stands in the layout.
    bool isDefault() const { return default_; }
    void setDefault(bool isDefault) { change(default_, isDefault, Aspect::value); }

    /// The user's press; nothing happens while the button is disabled or hidden.
    void click() {
        if (enabled() && visible()) clicked.raise();
    }

    Event<> clicked;

private:
    std::string caption_;
    bool default_ = false;
};

}  // namespace kelvor
