#include "batch/line_rewrite.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <unordered_set>

#include "text/code_points.h"
#include "text/letter_case.h"
#include "text/line_ends.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// In bytes: lines are worked on in blocks that stay in the processor's cache for all items.
constexpr std::size_t blockSize = std::size_t{256} << 10;

/// Which bytes a text may have.
class ByteSet {
public:
    void add(std::string_view text) {
        for (const char byte : text) holds_[static_cast<uint8_t>(byte)] = true;
    }
    bool holdsAll(std::string_view text) const {
        return std::all_of(text.begin(), text.end(), [this](char byte) { return holds_[static_cast<uint8_t>(byte)]; });
    }

private:
    std::array<bool, 256> holds_{};
};

bool hasNoCarriageReturn(std::string_view text) {
    return text.find('\r') == std::string_view::npos;
}

/// Where the block of whole lines ends that begins at `start`.
std::size_t blockEnd(std::string_view text, std::size_t start) {
    const auto lineEnd = text.find_first_of("\r\n", std::min(start + blockSize, text.size()));
    if (lineEnd == std::string_view::npos) return text.size();
    return lineEnd + (text.substr(lineEnd, 2) == "\r\n" ? 2 : 1);
}

}  // namespace

void sortFindItems(std::vector<FindItem>& findItems) {
    std::stable_sort(findItems.begin(), findItems.end(), [](const FindItem& left, const FindItem& right) {
        return characterCount(left.text) > characterCount(right.text);
    });
}

bool checkForDupes(const std::vector<FindItem>& findItems, bool matchCase) {
    std::unordered_set<std::string> texts;
    return !std::all_of(findItems.begin(), findItems.end(), [&](const FindItem& item) {
        return texts.insert(matchCase ? item.text : foldCase(item.text)).second;
    });
}

LineRewrite::LineRewrite(const std::vector<FindItem>& findItems, bool matchCase) {
    const SearchOptions options = {.matchCase = matchCase};
    for (const FindItem& item : findItems) {
        if (item.text.find_first_of("\r\n") != std::string::npos) continue;
        passes_.push_back({TextSearch(item.text, options), item.replacement, matchCase ? item.text : std::string()});
    }
}

void LineRewrite::apply(std::string_view text, const Take& take, const Step& step) const {
    const bool onlyLineFeeds =
        text.find('\n') != std::string_view::npos && holdsByPieces(text, hasNoCarriageReturn, step);
    for (std::size_t start = 0; start < text.size();) {
        const auto end = blockEnd(text, start);
        const auto lines = text.substr(start, end - start);
        if (!onlyLineFeeds) {
            rewrite(withLineEnds(lines), take, step);
        } else if (lines.ends_with('\n')) {
            rewrite(lines, take, step);
        } else {
            rewrite(std::string(lines) + '\n', take, step);
        }
        start = end;
    }
}

void LineRewrite::rewrite(std::string_view lines, const Take& take, const Step& step) const {
    ByteSet bytes;
    bytes.add(lines);
    std::string rewritten;
    for (const Pass& pass : passes_) {
        step();
        if (!bytes.holdsAll(pass.needed)) continue;
        const auto match = pass.search.find(lines);
        if (!match) continue;
        rewritten = replaceAll(lines, pass, *match, step);
        lines = rewritten;
        bytes.add(pass.replacement);
    }
    take(lines);
}

/// @param match  the first one
std::string LineRewrite::replaceAll(std::string_view text, const Pass& pass, TextMatch match, const Step& step) {
    constexpr std::size_t matchesInAStep = 1024;
    std::string result;
    result.reserve(text.size());
    std::size_t taken = 0;
    std::size_t matches = 0;
    for (std::optional<TextMatch> next = match; next; next = pass.search.find(text, taken)) {
        result.append(text, taken, next->position - taken).append(pass.replacement);
        taken = next->position + next->length;
        if (++matches % matchesInAStep == 0) step();
    }
    return result.append(text, taken);
}

}  // namespace kelvor
