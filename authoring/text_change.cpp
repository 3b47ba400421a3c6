#include "authoring/text_change.h"

#include "platform/edit_control.h"
#include "platform/text.h"

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
