// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/menu_item.h"

#include "controls/form.h"

namespace kelvor {

MenuItem::MenuItem(Form& form, std::string name, MenuItem* parent, std::string caption, const Handler<>& click)
    : Control(form, std::move(name)), parent_(parent), caption_(std::move(caption)) {
    click.connectTo(clicked, form);
}

bool MenuItem::reachable() const {
    for (const MenuItem* item = this; item; item = item->parent())
        if (!item->enabled() || (!item->visible() && !item->popup_)) return false;
    return true;
}

void MenuItem::click() {
    if (reachable()) clicked.raise();
}

}  // namespace kelvor
