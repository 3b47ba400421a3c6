// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

enum class ScriptLanguage { javaScript, vbScript };

/// The script as it stands in a tag of its language and in a comment, which hides it from browsers without scripts.
/// What is added has CR LF line ends.
std::string scriptTag(ScriptLanguage language, std::string_view script);

}  // namespace kelvor
