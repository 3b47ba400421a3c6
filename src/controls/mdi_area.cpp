// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/mdi_area.h"

#include <algorithm>

#include "controls/form.h"

namespace kelvor {

bool MdiArea::contains(const Form& child) const {
    return std::find(children_.begin(), children_.end(), &child) != children_.end();
}

void MdiArea::show(Form& child) {
    if (!contains(child)) {
        children_.push_back(&child);
        tell(Change::shown, &child);
    }
    bringToFront(child);
}

void MdiArea::remove(Form& child) {
    if (!contains(child)) return;
    const bool wasActive = activeForm() == &child;
    std::erase(children_, &child);
    std::erase(front_, &child);
    tell(Change::removed, &child);
    if (wasActive && activeForm()) bringToFront(*activeForm());
}

void MdiArea::activate(Form& child) {
    if (activeForm() != &child && contains(child)) bringToFront(child);
}

void MdiArea::bringToFront(Form& child) {
    std::erase(front_, &child);
    front_.push_back(&child);
    tell(Change::activated, &child);
    child.activated.raise();
}

void MdiArea::activateAtDistance(int distance) {
    if (children_.empty()) return;
    const auto count = static_cast<int>(children_.size());
    const auto place = std::find(children_.begin(), children_.end(), activeForm()) - children_.begin();
    const int index = (static_cast<int>(place) + distance + count) % count;
    show(*children_[static_cast<std::size_t>(index)]);
}

void MdiArea::activateNext() {
    activateAtDistance(1);
}

void MdiArea::activatePrevious() {
    activateAtDistance(-1);
}

void MdiArea::arrange(Arrangement arrangement) {
    arrangement_ = arrangement;
    tell(Change::arranged, nullptr);
}

}  // namespace kelvor
