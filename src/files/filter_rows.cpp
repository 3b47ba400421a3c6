// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/filter_rows.h"

#include <algorithm>

#include "files/files.h"

namespace kelvor {

namespace {

constexpr char everyFile[] = "*.*";

/// The parts of `text` between the separators, without the blanks around them.
std::vector<std::string> partsOf(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin <= text.size();) {
        const auto end = std::min(text.find(separator, begin), text.size());
        const auto part = text.substr(begin, end - begin);
        const auto first = std::min(part.find_first_not_of(' '), part.size());
        parts.emplace_back(part.substr(first, part.find_last_not_of(' ') + 1 - first));
        begin = end + 1;
    }
    return parts;
}

}  // namespace

std::vector<FilterRow> filterRows(std::string_view filter) {
    const auto parts = partsOf(filter, '|');
    std::vector<FilterRow> rows;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        auto patterns = partsOf(parts[i + 1], ';');
        std::erase(patterns, "");
        if (patterns.empty()) patterns.emplace_back(everyFile);
        rows.push_back({parts[i], std::move(patterns)});
    }
    if (rows.empty()) rows.push_back({"All Files", {everyFile}});
    return rows;
}

bool matches(std::string_view name, const FilterRow& row) {
    return std::any_of(row.patterns.begin(), row.patterns.end(),
                       [&](const std::string& pattern) { return nameMatches(name, pattern); });
}

}  // namespace kelvor
