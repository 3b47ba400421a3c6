// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scroll_bar.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

#include "qt/binders/binders.h"

namespace kelvor::qt {

void bindScrollBar(ScrollBar& bar, QScrollBar& widget, FormLink& link) {
    // What it scrolls would get larger by going without the bar, and then smaller again with it.
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
    link.follow(bar, widget, [&bar, &widget](Aspect) {
        const QSignalBlocker blocker(widget);
        widget.setRange(0, std::max(bar.maximum(), 0));
        widget.setPageStep(bar.largeChange());
        widget.setValue(bar.value());
    });
    QObject::connect(&widget, &QScrollBar::valueChanged, &link, [&bar, &widget](int value) {
        guarded([&] { widget.isSliderDown() ? bar.drag(value) : bar.setValue(value); });
    });
}

}  // namespace kelvor::qt
