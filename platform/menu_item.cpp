#include "platform/menu_item.h"

namespace kelvor {

MenuItem::MenuItem(Form& form, std::string name, MenuItem* parent) : Control(form, std::move(name)), parent_(parent) {
}

bool MenuItem::reachable() const {
    // A popup's own top row is never seen in the bar and has no say in what its rows may do.
    for (const MenuItem* item = this; item; item = item->parent()) {
        const bool popupTop = item != this && !item->parent();
        if (!item->enabled() || (!item->visible() && !popupTop)) return false;
    }
    return true;
}

void MenuItem::click() {
    if (reachable()) clicked.raise();
}

}  // namespace kelvor
