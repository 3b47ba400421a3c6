// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/utypes.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/step.h"

namespace kelvor {

/// Replaces characters, each by a text of its own, in one look at the text that they stand in.
class CharacterMap {
public:
    /// @param character    one character, UTF-8
    /// @param replacement  UTF-8; what stands in it is not looked at
    void set(std::string_view character, std::string replacement);

    /// Puts the text (UTF-8) with its characters replaced into `result`, in place of what that holds. False when the
    /// text has none of them.
    bool apply(std::string_view text, std::string& result, const Step& step) const;

private:
    const std::string* replacementOf(UChar32 character) const;
    std::size_t findBegin(std::string_view text, std::size_t position) const;

    std::vector<std::string> replacements_;
    std::array<std::uint32_t, 0x800> low_{};  ///< by character: place in replacements_ from 1, 0 for those that stay
    std::unordered_map<UChar32, std::uint32_t> high_;  ///< the same for the characters that low_ has no room for
    std::array<bool, 256> begins_{};                   ///< whether a character that is replaced begins with the byte
    bool beyondAscii_ = true;                          ///< none of those characters is ASCII
};

}  // namespace kelvor
