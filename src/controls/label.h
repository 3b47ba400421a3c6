// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// A text beside the fields.
class Label : public Control {
public:
    struct Handlers {
        Handler<> clicked;
        Handler<> doubleClicked;
    };

    explicit Label(Form& form, std::string name, std::string caption = {}, const Handlers& handlers = {})
        : Control(form, std::move(name)), caption_(std::move(caption)) {
        handlers.clicked.connectTo(clicked, form);
        handlers.doubleClicked.connectTo(doubleClicked, form);
    }

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::caption); }

    /// Whether "&" in the caption marks an access key, as "&&" then shows one "&"; otherwise it stands as it is.
    bool useMnemonic() const { return useMnemonic_; }
    void setUseMnemonic(bool useMnemonic) { change(useMnemonic_, useMnemonic, Aspect::caption); }

    /// Whether a screen reader says the caption when it appears, and each new one, wherever the keyboard is. To be told
    /// before the window is made.
    bool isNotice() const { return notice_; }
    void setNotice(bool isNotice) { notice_ = isNotice; }

    /// Red in the low byte; -1 is the desktop's own colour.
    int foreColor() const { return foreColor_; }
    void setForeColor(int color) { change(foreColor_, color, Aspect::color); }
    int backColor() const { return backColor_; }
    void setBackColor(int color) { change(backColor_, color, Aspect::color); }

    /// The user's acts; nothing happens while the label is disabled.
    void click() {
        if (enabled()) clicked.raise();
    }
    void doubleClick() {
        if (enabled()) doubleClicked.raise();
    }

    /// Where somebody hears it when the window is made, the label is a link: the keyboard comes to it too.
    Event<> clicked;
    Event<> doubleClicked;

private:
    std::string caption_;
    bool useMnemonic_ = false;
    bool notice_ = false;
    int foreColor_ = -1;
    int backColor_ = -1;
};

}  // namespace kelvor
