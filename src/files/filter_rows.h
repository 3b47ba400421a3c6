// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// A choice of files that a file dialog offers.
struct FilterRow {
    std::string name;
    /// Any of them lets a file in; see nameMatches.
    std::vector<std::string> patterns;
};

/// The rows of a filter text "Name|patterns|Name|patterns", patterns parted by ";". A row without patterns stands for
/// all files, and so does a text without a row.
std::vector<FilterRow> filterRows(std::string_view filter);

bool matches(std::string_view name, const FilterRow& row);

}  // namespace kelvor
