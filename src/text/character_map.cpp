// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/character_map.h"

#include <algorithm>
#include <utility>

#include "text/code_points.h"
#include "text/utf8_check.h"

namespace kelvor {

void CharacterMap::set(std::string_view character, std::string replacement) {
    replacements_.push_back(std::move(replacement));
    const auto place = static_cast<std::uint32_t>(replacements_.size());
    const auto value = codePointAt(character, 0).value;
    if (static_cast<std::size_t>(value) < low_.size()) {
        low_[static_cast<std::size_t>(value)] = place;
    } else {
        high_[value] = place;
    }
    begins_[static_cast<std::uint8_t>(character.front())] = true;
    beyondAscii_ = beyondAscii_ && value >= 0x80;
}

const std::string* CharacterMap::replacementOf(UChar32 character) const {
    std::size_t place = 0;
    if (static_cast<std::size_t>(character) < low_.size()) {
        place = low_[static_cast<std::size_t>(character)];
    } else if (const auto found = high_.find(character); found != high_.end()) {
        place = found->second;
    }
    return place == 0 ? nullptr : &replacements_[place - 1];
}

/// Where the next character stands that may be replaced; the end of the text when there is none.
std::size_t CharacterMap::findBegin(std::string_view text, std::size_t position) const {
    constexpr std::size_t near = 16;
    const auto begins = [&] { return begins_[static_cast<std::uint8_t>(text[position])]; };
    for (const auto end = std::min(position + near, text.size()); position < end; ++position)
        if (begins()) return position;
    // Most pages have long stretches without any.
    while (position < text.size() && !begins()) position = beyondAscii_ ? skipAscii(text, position + 1) : position + 1;
    return position;
}

bool CharacterMap::apply(std::string_view text, std::string& result, const Step& step) const {
    // In bytes: well below a millisecond's work.
    constexpr std::size_t stepLength = std::size_t{1} << 18;
    bool found = false;
    std::size_t taken = 0;
    for (std::size_t position = 0, end = 0; position < text.size();) {
        if (position >= end) {
            if (end > 0) step();
            end = position + std::min(stepLength, text.size() - position);
        }
        position = findBegin(text.substr(0, end), position);
        if (position == end) continue;
        const auto [character, length] = codePointAt(text, position);
        if (const std::string* replacement = replacementOf(character)) {
            if (!std::exchange(found, true)) result.clear();
            result.append(text, taken, position - taken).append(*replacement);
            taken = position + length;
        }
        position += length;
    }
    if (found) result.append(text, taken);
    return found;
}

}  // namespace kelvor
