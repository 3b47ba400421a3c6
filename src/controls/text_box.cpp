// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_box.h"

#include <algorithm>

#include "text/text_difference.h"

namespace kelvor {

void TextBox::type(const std::string& text) {
    if (!enabled() || !visible()) return;
    const TextChange change = changeBetween(text_, text);
    std::string taken(change.inserted.substr(0, change.inserted.find_first_of("\r\n")));
    std::erase_if(taken, [this](char character) { return !takesKey(character); });
    if (taken.empty() && !change.inserted.empty()) return;
    const std::size_t end = change.position + taken.size();
    write(std::string(text_).replace(change.position, change.removed.size(), taken), static_cast<int>(end));
}

void TextBox::write(const std::string& text, int caret) {
    if (text == text_) return;
    text_ = text;
    placeCaret(caret);
    tell(Aspect::text);
    changed.raise();
}

}  // namespace kelvor
