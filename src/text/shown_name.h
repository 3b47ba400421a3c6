// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// A file's name or path as a person is to see it, on one line: `\n`, `\r`, `\t` and `\x1B` stand for control
/// characters, `\u202E` for the characters that break a line or turn the order of others round, `\xE9` for a byte that
/// belongs to no character. Everything else, backslashes too, stays as it is, so what is given is for the eye alone and
/// opens no file.
std::string shownName(std::string_view name);

}  // namespace kelvor
