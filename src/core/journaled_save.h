// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// saveFileInPlace for what is no document: until the file is written whole a journal holds its text, so that a kill in
/// the middle leaves it there. A journal that cannot be written does not stop the save. Throws what saveFileInPlace
/// throws.
void journaledSave(const std::string& path, std::string_view bytes);

}  // namespace kelvor
