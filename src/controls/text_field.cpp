// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_field.h"

#include <algorithm>

namespace kelvor {

void TextField::setSelStart(int position) {
    select(position, 0);
}

void TextField::setSelLength(int length) {
    select(selStart_, length);
}

void TextField::placeCaret(int position) {
    selStart_ = position;
    selLength_ = 0;
}

void TextField::select(int start, int length) {
    const int end = static_cast<int>(text().size());
    start = std::clamp(start, 0, end);
    length = std::clamp(length, 0, end - start);
    if (start == selStart_ && length == selLength_) return;
    selStart_ = start;
    selLength_ = length;
    tell(Aspect::textSelection);
}

}  // namespace kelvor
