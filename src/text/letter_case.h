// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/umachine.h>

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// Case rules of all of Unicode that depend on no language. Texts are UTF-8.
std::string toUpper(std::string_view text);

std::string toLower(std::string_view text);

/// The text by which two spellings that differ in case only are the same. Every character folds to one
/// character, so nothing grows or shrinks in number of characters (of bytes it may).
std::string foldCase(std::string_view text);

bool equalIgnoringCase(std::string_view left, std::string_view right);

/// All characters, each as its bytes, that a search without regard to case takes for one that folds to `folded`; that
/// one is the first. "k" is also "K" and the Kelvin sign of three bytes.
std::vector<std::string> spellingsOf(UChar32 folded);

}  // namespace kelvor
