// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"

namespace kelvor {

/// A row of buttons with pictures. Keys compare exactly.
class ToolBar : public Control {
public:
    /// A toggle button stays down as long as its command says so: a press alone does not turn it.
    enum class ButtonKind { push, toggle, dropDown, separator };
    struct Entry {
        std::string_view key;
        std::string_view caption;
    };
    struct Button {
        std::string_view key = {};
        std::string_view toolTip = {};
        ButtonKind kind = ButtonKind::push;
        std::vector<Entry> entries = {};  ///< of a drop-down button
        bool enabled = true;
        bool pressed = false;
        std::string_view caption = {};  ///< on bars that show texts; the tool tip when there is none
    };

    ToolBar(Form& form, std::string name, std::vector<Button> buttons)
        : Control(form, std::move(name)), buttons_(std::move(buttons)) {}

    const std::vector<Button>& buttons() const { return buttons_; }
    /// The button of that key; one that is not there is an error 35601. So it is for the calls that follow.
    const Button& button(std::string_view key) const;
    void setButtonEnabled(std::string_view key, bool enabled);
    /// Presses a toggle button or lets it up. No click is raised.
    void setValue(std::string_view key, bool pressed);

    /// The user's press of a button. Nothing happens while the button or the bar is disabled or hidden.
    void click(std::string_view key);
    /// The user's choice from a button's list.
    void chooseEntry(std::string_view key, std::string_view entry);

    Event<std::string_view> buttonClicked;
    Event<std::string_view> entryChosen;
    /// A press of a mouse button on the bar.
    Event<MousePress> mouseDown;

private:
    std::size_t indexOf(std::string_view key) const;

    std::vector<Button> buttons_;
};

}  // namespace kelvor
