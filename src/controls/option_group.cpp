// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/option_group.h"

#include "controls/form.h"

namespace kelvor {

OptionGroup::OptionGroup(Form& form, const std::string& name, const std::vector<std::string>& captions,
                         const Handler<int>& click)
    : buttons_(form, name, captions) {
    click.connectTo(clicked, form);
    for (std::size_t index = 0; index < buttons_.size(); ++index)
        buttons_[index].pressed.connect([this, index] { select(static_cast<int>(index)); });
}

void OptionGroup::select(int index) {
    if (index == selected_) return;
    selected_ = index;
    for (std::size_t button = 0; button < buttons_.size(); ++button)
        buttons_[button].change(buttons_[button].value_, static_cast<int>(button) == index, Aspect::value);
    clicked.raise(index);
}

}  // namespace kelvor
