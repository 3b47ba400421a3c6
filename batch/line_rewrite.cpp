#include "batch/line_rewrite.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <unordered_set>

#include "platform/text.h"

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

void appendLine(std::string& result, std::string_view line) {
    result.append(line).append("\r\n");
}

/// The text with CR LF, and nothing else, as its line ends.
std::string withCarriageReturns(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 32);
    for (std::size_t start = 0; start < text.size();) {
        const auto end = std::min(text.find('\n', start), text.size());
        auto line = text.substr(start, end - start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        for (auto carriage = line.find('\r'); carriage != std::string_view::npos; carriage = line.find('\r')) {
            appendLine(result, line.substr(0, carriage));
            line.remove_prefix(carriage + 1);
        }
        appendLine(result, line);
        start = end + 1;
    }
    return result;
}

std::string withOneKindOfLineEnd(std::string text) {
    if (text.empty()) return text;
    const bool onlyLineFeeds = text.find('\r') == std::string::npos && text.find('\n') != std::string::npos;
    if (!onlyLineFeeds) return withCarriageReturns(text);
    if (text.back() != '\n') text += '\n';
    return text;
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
    const int options = matchCase ? find_option::matchCase : 0;
    for (const FindItem& item : findItems) {
        if (item.text.find_first_of("\r\n") != std::string::npos) continue;
        passes_.push_back({TextSearch(item.text, options), item.replacement, matchCase ? item.text : std::string()});
    }
}

std::string LineRewrite::apply(std::string text, const std::function<void()>& step) const {
    const auto lines = withOneKindOfLineEnd(std::move(text));
    std::string result;
    result.reserve(lines.size());
    for (std::size_t start = 0; start < lines.size();) {
        const auto lineEnd = lines.find('\n', std::min(start + blockSize, lines.size()));
        const auto end = lineEnd == std::string::npos ? lines.size() : lineEnd + 1;
        appendRewritten(result, std::string_view(lines).substr(start, end - start), step);
        start = end;
    }
    return result;
}

void LineRewrite::appendRewritten(std::string& result, std::string_view lines,
                                  const std::function<void()>& step) const {
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
    result += lines;
}

/// @param match  the first one
std::string LineRewrite::replaceAll(std::string_view text, const Pass& pass, TextMatch match,
                                    const std::function<void()>& step) {
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
