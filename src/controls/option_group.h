// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control_array.h"
#include "controls/handler.h"

namespace kelvor {

/// One of several choices; what chooses and clears it is its OptionGroup.
class OptionButton : public Control {
public:
    OptionButton(Form& form, std::string name, std::string caption)
        : Control(form, std::move(name)), caption_(std::move(caption)) {}

    const std::string& caption() const { return caption_; }
    bool value() const { return value_; }

    /// The user's press; nothing happens while the button is disabled or hidden.
    void click() {
        if (enabled() && visible()) pressed.raise();
    }

    /// Heard by the group.
    Event<> pressed;

private:
    friend class OptionGroup;

    std::string caption_;
    bool value_ = false;
};

/// Choices of which one at most is selected: the buttons "name_0", "name_1" and so on.
class OptionGroup {
public:
    OptionGroup(Form& form, const std::string& name, const std::vector<std::string>& captions,
                const Handler<int>& click = {});

    std::size_t size() const { return buttons_.size(); }
    OptionButton& operator[](std::size_t index) const { return buttons_[index]; }

    /// The selected button's index, -1 before the first choice.
    int selected() const { return selected_; }
    /// Raises `clicked` when the choice differs.
    void select(int index);

    /// The button of that index has become the selected one.
    Event<int> clicked;

private:
    ControlArray<OptionButton> buttons_;
    int selected_ = -1;
};

}  // namespace kelvor
