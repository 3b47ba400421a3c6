// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/check_box.h"

#include <QCheckBox>
#include <QSignalBlocker>

#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

void bindCheckBox(CheckBox& box, QCheckBox& widget, FormLink& link) {
    widget.setText(toQt(box.caption()));
    const auto show = [&box, &widget] {
        const QSignalBlocker blocker(widget);
        widget.setChecked(box.value());
    };
    link.follow(box, widget, [show](Aspect) { show(); });
    // The toolkit has turned the mark by itself, for a mouse, a key or a screen reader; the control decides.
    QObject::connect(&widget, &QCheckBox::toggled, &link,
                     [&box, &link, show] { link.perform([&box] { box.click(); }, show); });
}

}  // namespace kelvor::qt
