// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/setting.h"

namespace kelvor {

/// The application name under which every value is kept.
inline constexpr std::string_view application = "Kelvor";

/// The stored text, or `standard` when there is none. Names are matched without regard to case (all of Unicode).
std::string GetSetting(std::string_view program, std::string_view section, std::string_view key,
                       std::string_view standard = {});
/// Stores a text; it is on disk when the call returns. An existing key keeps its place in the listing.
void SaveSetting(std::string_view program, std::string_view section, std::string_view key, std::string_view value);
/// Removes one key; one that is not there is an error 5.
void DeleteSetting(std::string_view program, std::string_view section, std::string_view key);
/// The section's pairs in the order of their creation; nothing when the section is missing or empty.
std::optional<std::vector<Setting>> GetAllSettings(std::string_view program, std::string_view section);

/// How a Boolean is stored.
constexpr std::string_view settingText(bool value) {
    return value ? "True" : "False";
}

/// The number in a stored text, as a conversion of the whole text. Anything else is an error 13.
int settingNumber(const std::string& text);
/// The Boolean in a stored text: "True", "False" in any case, or a number (0 is false). Anything else: error 13.
bool settingBoolean(const std::string& text);

/// Closes the store, with a copy beside it to fall back on when the file gets damaged; the next call opens it
/// anew. For the end of the program and for tests.
void closeSettings();

}  // namespace kelvor
