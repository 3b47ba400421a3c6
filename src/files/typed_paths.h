// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// The paths of a text that a person typed or pasted to name files: names in `directory`, or paths, where "~" and
/// "~user" lead to a home. Several names stand each in double quotes with blanks between, where two double quotes are
/// one of the name's own; or each on a line of its own. A text of another form is one name, its double quotes
/// included. Blanks around a name count inside of quotes alone. "." and ".." are resolved by the text, without a look
/// at links; a separator at the end stays.
std::vector<std::string> typedPaths(std::string_view text, const std::string& directory);

/// The path of a text that is one name and nothing else, all its double quotes included; "" for blanks. A line end in
/// it is a blank, as a field shows it.
std::string typedPath(std::string_view text, const std::string& directory);

/// A text that typedPaths takes for these names of the directory.
std::string typedText(const std::vector<std::string>& names);

}  // namespace kelvor
