#pragma once

#include <string>

#include "platform/control.h"

namespace kelvor {

/// A push button; its caption holds "&" before the access key.
class Button : public Control {
public:
    Button(Form& form, std::string name, std::string caption)
        : Control(form, std::move(name)), caption_(std::move(caption)) {}

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::caption); }

    /// The user's press; nothing happens while the button is disabled or hidden.
    void click() {
        if (enabled() && visible()) clicked.raise();
    }

    Event<> clicked;

private:
    std::string caption_;
};

}  // namespace kelvor
