// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// Order of two texts as a person sorts names: by the root collation, case ignored first.
int compareText(std::string_view left, std::string_view right);

/// Bytes whose order is that of compareText, except that they are equal where a person takes the texts for equal.
std::string textSortKey(std::string_view text);

/// Sorts by that order, with one look at each text; equal ones by their bytes.
void sortAsText(std::vector<std::string>& texts);

/// Of the library that knows the order.
std::string icuVersion();

}  // namespace kelvor
