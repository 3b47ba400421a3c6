// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// Paths are native ("/"), or foreign: spelled with a drive ("C:\web") or beginning with "\\". Only this
/// unit tells them apart.
bool isForeignPath(std::string_view path);

/// "/" for native paths, "\" for foreign ones.
char separatorOf(std::string_view path);

/// The part behind the last separator; the whole when there is none.
std::string fileNamePart(std::string_view path);

/// The part before the last separator, without it; "" when there is none, "/" for a file in the root.
std::string directoryPart(std::string_view path);

/// `directory` and `name` with one separator between them.
std::string joinPath(std::string_view directory, std::string_view name);

}  // namespace kelvor
