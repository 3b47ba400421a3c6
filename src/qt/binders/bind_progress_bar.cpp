// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/progress_bar.h"

#include <QProgressBar>
#include <algorithm>

#include "qt/binders/binders.h"

namespace kelvor::qt {

void bindProgressBar(ProgressBar& bar, QProgressBar& widget, FormLink& link) {
    link.follow(bar, widget, [&bar, &widget](Aspect) {
        // An empty range would make the toolkit show a work without an end.
        const int maximum = std::max(bar.maximum(), bar.minimum() + 1);
        widget.setRange(bar.minimum(), maximum);
        widget.setValue(std::clamp(bar.value(), bar.minimum(), maximum));
    });
}

}  // namespace kelvor::qt
