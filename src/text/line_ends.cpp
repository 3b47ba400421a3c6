#include "text/line_ends.h"

#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <algorithm>
#include <bit>
#include <climits>
#include <cstddef>

namespace kelvor {

std::string commonLineEnd(std::string_view text) {
    std::size_t pairs = 0;
    std::size_t feeds = 0;
    for (auto at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1)) {
        ++(at > 0 && text[at - 1] == '\r' ? pairs : feeds);
    }
    const std::size_t returns = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\r')) - pairs;
    if (feeds > pairs && feeds >= returns) return "\n";
    return returns > pairs ? "\r" : "\r\n";
}

std::string withLineEnd(std::string_view text, std::string_view lineEnd) {
    std::string result;
    result.reserve(text.size() + text.size() / 32);
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(0, end);
        const bool ended = end < text.size();
        text.remove_prefix(ended ? end + 1 : end);
        if (ended && line.ends_with('\r')) line.remove_suffix(1);
        for (auto carriage = line.find('\r'); carriage != std::string_view::npos; carriage = line.find('\r')) {
            result.append(line.substr(0, carriage)).append(lineEnd);
            line.remove_prefix(carriage + 1);
        }
        result.append(line);
        if (ended) result.append(lineEnd);
    }
    return result;
}

std::string withLineEnds(std::string_view text) {
    auto result = withLineEnd(text, "\r\n");
    if (!text.empty() && text.back() != '\r' && text.back() != '\n') result += "\r\n";
    return result;
}

}  // namespace kelvor
