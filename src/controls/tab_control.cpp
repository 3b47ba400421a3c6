// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tab_control.h"

#include "base/error.h"
#include "controls/form.h"

namespace kelvor {

TabControl::TabControl(Form& form, std::string name, const std::vector<std::string>& captions,
                       const Handler<int>& click)
    : Control(form, std::move(name)) {
    click.connectTo(clicked, form);
    for (const std::string& caption : captions) pages_.push_back({caption});
}

const TabControl::Page& TabControl::at(int page) const {
    if (page >= 0 && page < static_cast<int>(pages_.size())) return pages_[static_cast<std::size_t>(page)];
    throw Error(error_number::invalidPropertyValue, "There is no tab " + std::to_string(page));
}

void TabControl::setCaption(int page, const std::string& caption) {
    at(page);
    change(pages_[static_cast<std::size_t>(page)].caption, caption, Aspect::caption);
}

void TabControl::setTab(int page) {
    at(page);
    const int previous = tab_;
    if (change(tab_, page, Aspect::selection)) clicked.raise(previous);
}

void TabControl::setTabEnabled(int page, bool enabled) {
    at(page);
    change(pages_[static_cast<std::size_t>(page)].enabled, enabled, Aspect::list);
}

}  // namespace kelvor
