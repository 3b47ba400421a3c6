#include "authoring/text_change.h"

#include <algorithm>

#include "platform/code_points.h"
#include "platform/edit_control.h"

namespace kelvor {

void changeText(EditControl& control, std::string_view text) {
    const std::string_view old = control.textView();
    if (old == text) return;
    const auto shorter = std::min(old.size(), text.size());
    const auto front = std::mismatch(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(shorter), text.begin());
    auto start = static_cast<std::size_t>(front.first - old.begin());
    const auto room = static_cast<std::ptrdiff_t>(shorter - start);
    const auto back = std::mismatch(old.rbegin(), old.rbegin() + room, text.rbegin());
    auto behind = static_cast<std::size_t>(back.first - old.rbegin());
    // Only whole characters can be selected.
    while (start < old.size() && isContinuationByte(old[start])) --start;
    while (behind > 0 && isContinuationByte(old[old.size() - behind])) --behind;
    const auto removed = static_cast<int>(old.size() - behind - start);
    const EditControl::Batch batch(control);
    control.setSelStart(static_cast<int>(start));
    control.setSelLength(removed);
    control.setSelText(text.substr(start, text.size() - behind - start));
}

}  // namespace kelvor
