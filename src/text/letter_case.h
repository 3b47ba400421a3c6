// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <bit>
#include <string>
#include <string_view>

namespace kelvor {

/// Case rules of all of Unicode that depend on no language. Texts are UTF-8.
std::string toUpper(std::string_view text);

std::string toLower(std::string_view text);

/// The text by which two spellings that differ in case only are the same. Every character folds to one
/// character, so nothing grows or shrinks in number of characters (of bytes it may).
std::string foldCase(std::string_view text);

bool equalIgnoringCase(std::string_view left, std::string_view right);

}  // namespace kelvor
