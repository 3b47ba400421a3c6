// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/picture_box.h"

#include <QWidget>

#include "qt/binders/binders.h"

namespace kelvor::qt {

void bindPictureBox(PictureBox& box, QWidget& widget, FormLink& link) {
    link.follow(box, widget, [](Aspect) {});
}

}  // namespace kelvor::qt
