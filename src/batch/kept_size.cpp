// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/kept_size.h"

#include <sys/stat.h>

#include <array>
#include <cstdio>
#include <iterator>
#include <numeric>

#include "files/system_calls.h"
#include "text/counted.h"

namespace kelvor {

std::string sizeText(std::uintmax_t bytes) {
    constexpr std::uintmax_t step = 1024;
    constexpr const char* units[] = {"KB", "MB", "GB"};
    if (bytes < step) return counted(bytes, "byte");
    double size = static_cast<double>(bytes) / step;
    std::size_t unit = 0;
    for (; size >= step && unit + 1 < std::size(units); ++unit) size /= step;
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.1f %s", size, units[unit]);
    return text.data();
}

void KeptSize::add(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        struct stat status {};
        const bool isSeen = systemCalls().stat(path.c_str(), &status) == 0;
        sizes_.push_back(isSeen ? static_cast<std::uintmax_t>(status.st_size) : 0);
    }
}

void KeptSize::remove(int row) {
    if (row >= 0 && row < std::ssize(sizes_)) sizes_.erase(sizes_.begin() + row);
}

std::string KeptSize::caption() const {
    if (sizes_.empty()) return "";
    const auto bytes = std::accumulate(sizes_.begin(), sizes_.end(), std::uintmax_t{0});
    return "The old files, " + sizeText(bytes) + ", are kept until the next run.";
}

}  // namespace kelvor
