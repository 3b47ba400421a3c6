// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

#include "base/event.h"

namespace kelvor {

class Form;

/// What of a control has changed, told to the widget that follows it.
enum class Aspect {
    caption,
    enabled,
    visible,
    focus,
    text,
    textSelection,
    value,
    list,
    selection,
    order,
    toolTip,
    color,
    place
};

/// A control's own state, without a toolkit. A widget of the same name follows it: it is told each change
/// of the state and gives the user's acts back as calls. A write that changes nothing is told to nobody.
class Control {
public:
    using Follower = std::function<void(Aspect)>;

    /// Registers the control with `form`, under `name`; the widget bound to it has that objectName.
    Control(Form& form, std::string name);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& name() const { return name_; }
    Form& form() const { return form_; }

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) { change(enabled_, enabled, Aspect::enabled); }

    /// Whether the control is to be seen; the form around it may be hidden all the same.
    bool visible() const { return visible_; }
    void setVisible(bool visible) { change(visible_, visible, Aspect::visible); }

    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(const std::string& text) { change(toolTip_, text, Aspect::toolTip); }

    /// Gives the control the keyboard focus.
    virtual void SetFocus() { tell(Aspect::focus); }

    /// Raised when the keyboard focus arrives.
    Event<> gotFocus;

    /// Sets the one follower, which must outlive the control or be taken off with {}.
    void follow(Follower follower) { follower_ = std::move(follower); }

protected:
    void tell(Aspect aspect) const {
        if (follower_) follower_(aspect);
    }

    /// Stores `value` and tells `aspect` when it differs; whether it did.
    template <typename T>
    bool change(T& member, const T& value, Aspect aspect) {
        if (member == value) return false;
        member = value;
        tell(aspect);
        return true;
    }

private:
    Form& form_;
    std::string name_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string toolTip_;
    Follower follower_;
};

inline void setAllEnabled(std::initializer_list<Control*> controls, bool enabled) {
    for (Control* control : controls) control->setEnabled(enabled);
}

}  // namespace kelvor
