// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/line_rewrite.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "text/code_points.h"
#include "text/letter_case.h"
#include "text/line_ends.h"
#include "text/text_encoding.h"
#include "text/utf8_check.h"

namespace kelvor {

namespace {

/// Of the memory for one text, in bytes: the most that stays for the next one.
constexpr std::size_t mostKept = std::size_t{4} << 20;

/// In bytes: lines are worked on in blocks that stay in the processor's cache for all items.
constexpr std::size_t blockSize = std::size_t{256} << 10;

/// Fewer items of one character each are found faster one by one.
constexpr std::ptrdiff_t fewestCombined = 4;
/// In bytes: the longest text that a character may become where items are combined.
constexpr std::size_t longestCombined = 256;

bool hasNoCarriageReturn(std::string_view text) {
    return text.find('\r') == std::string_view::npos;
}

/// Where the block of whole lines ends that begins at `start`.
std::size_t blockEnd(std::string_view text, std::size_t start) {
    const auto lineEnd = text.find_first_of("\r\n", std::min(start + blockSize, text.size()));
    if (lineEnd == std::string_view::npos) return text.size();
    return lineEnd + (text.substr(lineEnd, 2) == "\r\n" ? 2 : 1);
}

bool canBeCombined(const FindItem& item) {
    return !item.text.empty() && isValidUtf8(item.text) && codePointAt(item.text, 0).length == item.text.size() &&
           isValidUtf8(item.replacement) && item.replacement.size() <= longestCombined;
}

/// All that an item of one character finds.
std::vector<std::string> charactersFoundBy(const FindItem& item, bool matchCase) {
    if (matchCase) return {item.text};
    return spellingsOf(foldedCodePoint(codePointAt(item.text, 0).value));
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

LineRewrite::LineRewrite(std::vector<FindItem> findItems, bool matchCase, Counting counting)
    : counts_(findItems.size()) {
    for (FindItem& item : findItems) {
        // An empty text is found nowhere.
        if (item.text.find_first_of("\r\n") != std::string::npos) item.text.clear();
    }
    const auto placeOf = [&](auto item) { return static_cast<std::size_t>(item - findItems.begin()); };
    for (auto item = findItems.begin(); item != findItems.end();) {
        const auto end = counting == Counting::on ? item : std::find_if_not(item, findItems.end(), canBeCombined);
        if (end - item >= fewestCombined) {
            if (auto map = combined({item, end}, matchCase)) {
                stages_.push_back({std::move(*map), placeOf(item)});
                item = end;
                continue;
            }
        }
        const auto last = end == item ? end + 1 : end;
        for (; item != last; ++item) stages_.push_back({passOf(*item, matchCase), placeOf(item)});
    }
}

LineRewrite::Pass LineRewrite::passOf(const FindItem& item, bool matchCase) {
    return {TextSearch(item.text, {.matchCase = matchCase}), item.replacement};
}

/// The items in one. Each finds single characters, which it does whatever stands beside them, so what becomes of a
/// text is what becomes of its characters. Nothing when one becomes too long a text.
std::optional<CharacterMap> LineRewrite::combined(std::span<const FindItem> items, bool matchCase) {
    std::vector<Pass> passes;
    for (const FindItem& item : items) passes.push_back(passOf(item, matchCase));
    CharacterMap map;
    for (const FindItem& item : items) {
        for (const std::string& character : charactersFoundBy(item, matchCase)) {
            std::string text = character;
            std::string next;
            for (const Pass& pass : passes) {
                if (pass.apply(text, next, noStep) > 0) text.swap(next);
                if (text.size() > longestCombined) return std::nullopt;
            }
            map.set(character, std::move(text));
        }
    }
    return map;
}

void LineRewrite::apply(std::string_view text, const Take& take, const Step& step) {
    const bool onlyLineFeeds =
        text.find('\n') != std::string_view::npos && holdsByPieces(text, hasNoCarriageReturn, step);
    for (std::string* kept : {&rewritten_, &spare_})
        if (kept->capacity() > mostKept) std::string().swap(*kept);
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

void LineRewrite::rewrite(std::string_view lines, const Take& take, const Step& step) {
    for (const Stage& stage : stages_) {
        step();
        const auto count =
            std::visit([&](const auto& items) { return std::size_t{items.apply(lines, spare_, step)}; }, stage.items);
        if (count == 0) continue;
        counts_[stage.first] += count;
        rewritten_.swap(spare_);
        lines = rewritten_;
    }
    take(lines);
}

std::size_t LineRewrite::Pass::apply(std::string_view text, std::string& result, const Step& step) const {
    constexpr std::size_t matchesInAStep = 1024;
    std::size_t taken = 0;
    std::size_t matches = 0;
    for (auto match = search.find(text); match; match = search.find(text, taken)) {
        if (matches == 0) result.clear();
        result.append(text, taken, match->position - taken).append(replacement);
        taken = match->position + match->length;
        if (++matches % matchesInAStep == 0) step();
    }
    if (matches > 0) result.append(text, taken);
    return matches;
}

std::vector<std::size_t> LineRewrite::takeCounts() {
    std::vector<std::size_t> none(counts_.size());
    return std::exchange(counts_, std::move(none));
}

}  // namespace kelvor
