// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frame.h"

#include <QGroupBox>

#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

void bindFrame(Frame& frame, QGroupBox& widget, FormLink& link) {
    widget.setTitle(toQt(frame.caption()));
    link.follow(frame, widget, [](Aspect) {});
}

}  // namespace kelvor::qt
