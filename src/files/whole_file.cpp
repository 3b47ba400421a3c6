// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/whole_file.h"

#include <cstddef>
#include <exception>
#include <utility>

#include "base/event.h"
#include "files/files.h"
#include "text/line_ends.h"
#include "text/text_encoding.h"

namespace kelvor {

bool fileExists(const std::string& path) {
    bool found = false;
    guarded([&] { found = listingFinds(path); });
    return found;
}

std::string asReadWhole(std::string text) {
    constexpr char endOfFileMark = 26;
    const std::size_t mark = text.find(endOfFileMark);
    return mark == std::string::npos || mark + 1 == text.size() ? std::move(text) : withLineEnds(text);
}

std::string readWholeFile(const std::string& path) {
    try {
        return asReadWhole(decode(readFile(path)).text);
    } catch (const std::exception&) {
        return std::string(unreadableText);
    }
}

}  // namespace kelvor
