// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tool_bar.h"

#include <algorithm>

#include "base/error.h"
#include "controls/button.h"

namespace kelvor {

std::size_t ToolBar::indexOf(std::string_view key) const {
    const auto found =
        std::find_if(buttons_.begin(), buttons_.end(), [&](const Button& button) { return button.key == key; });
    if (key.empty() || found == buttons_.end())
        throw Error(error_number::elementNotFound, "There is no button " + std::string(key));
    return static_cast<std::size_t>(found - buttons_.begin());
}

const ToolBar::Button& ToolBar::button(std::string_view key) const {
    return buttons_[indexOf(key)];
}

void ToolBar::setButtonEnabled(std::string_view key, bool enabled) {
    change(buttons_[indexOf(key)].enabled, enabled, Aspect::list);
}

void ToolBar::setValue(std::string_view key, bool pressed) {
    change(buttons_[indexOf(key)].pressed, pressed, Aspect::value);
}

void ToolBar::click(std::string_view key) {
    const Button& target = button(key);
    if (enabled() && visible() && target.enabled) buttonClicked.raise(target.key);
}

void ToolBar::chooseEntry(std::string_view key, std::string_view entry) {
    if (enabled() && visible() && button(key).enabled) entryChosen.raise(entry);
}

}  // namespace kelvor
