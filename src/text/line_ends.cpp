// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/line_ends.h"

#include <algorithm>

#include "text/byte_blocks.h"

namespace kelvor {

void LineEndCounts::add(std::string_view part) {
    if (part.empty()) return;
    if (endsWithReturn_ && part.front() == '\n') ++pairs_;
    endsWithReturn_ = part.back() == '\r';
    BlockCount feeds;
    BlockCount returns;
    BlockCount pairs;
    std::size_t at = 0;
    for (; at + sizeof(ByteBlock) < part.size(); at += sizeof(ByteBlock)) {
        const ByteBlock isFeed = blockAt(part.data() + at) == '\n';
        const ByteBlock isReturn = blockAt(part.data() + at) == '\r';
        const ByteBlock feedFollows = blockAt(part.data() + at + 1) == '\n';
        feeds.add(isFeed);
        returns.add(isReturn);
        pairs.add(isReturn & feedFollows);
    }
    feeds_ += feeds.total();
    returns_ += returns.total();
    pairs_ += pairs.total();
    for (; at < part.size(); ++at) {
        if (part[at] == '\n') ++feeds_;
        if (part[at] == '\r') ++returns_;
        if (part[at] == '\r' && at + 1 < part.size() && part[at + 1] == '\n') ++pairs_;
    }
}

std::string LineEndCounts::mostCommon() const {
    const auto feeds = feeds_ - pairs_;
    const auto returns = returns_ - pairs_;
    if (feeds > pairs_ && feeds >= returns) return "\n";
    return returns > pairs_ ? "\r" : "\r\n";
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
