// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/text_change.h"

#include "controls/edit_control.h"
#include "text/text_difference.h"

namespace kelvor {

void changeText(EditControl& control, std::string_view text) {
    const TextChange change = changeBetween(control.textView(), text);
    if (change.removed.empty() && change.inserted.empty()) return;
    const EditControl::Batch batch(control);
    control.setSelStart(static_cast<int>(change.position));
    control.setSelLength(static_cast<int>(change.removed.size()));
    control.setSelText(change.inserted);
}

}  // namespace kelvor
