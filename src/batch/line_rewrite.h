// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/step.h"
#include "text/character_map.h"
#include "text/text_search.h"

namespace kelvor {

/// One row of a list of replacements.
struct FindItem {
    std::string text;
    std::string replacement;

    bool operator==(const FindItem&) const = default;
};

/// Orders the items by their number of characters, the longest first; equal ones keep their order. So a short
/// text that is part of a longer one does not destroy the longer one's matches.
void sortFindItems(std::vector<FindItem>& findItems);

/// Whether two items look for the same text.
bool checkForDupes(const std::vector<FindItem>& findItems, bool matchCase);

/// A list of replacements made ready for any number of texts.
class LineRewrite {
public:
    /// Whether each item is counted; that takes longer where there are many.
    enum class Counting { off, on };

    /// @param findItems  applied in this order
    LineRewrite(std::vector<FindItem> findItems, bool matchCase, Counting counting = Counting::off);

    using Take = std::function<void(std::string_view lines)>;

    /// Gives the text (UTF-8), some lines at a time, with all items applied to each line, one after the other: each
    /// sees what those before it have made, but never what it has put in itself. CR LF, a lone CR and a lone LF end a
    /// line. All lines of the result, the last one too, end in LF when those of the text that had an end did,
    /// otherwise in CR LF. An item with a line end in its text is found nowhere.
    void apply(std::string_view text, const Take& take, const Step& step);

    /// How often each item has been put in since the last call, in their order. Only what was counted is told.
    std::vector<std::size_t> takeCounts();

private:
    /// One item, as the search for it.
    struct Pass {
        /// As CharacterMap::apply; how often it was put in.
        std::size_t apply(std::string_view text, std::string& result, const Step& step) const;

        TextSearch search;
        std::string replacement;
    };
    struct Stage {
        std::variant<Pass, CharacterMap> items;
        std::size_t first = 0;  ///< the place of the first of them
    };
    static Pass passOf(const FindItem& item, bool matchCase);
    static std::optional<CharacterMap> combined(std::span<const FindItem> items, bool matchCase);
    void rewrite(std::string_view lines, const Take& take, const Step& step);

    std::vector<Stage> stages_;
    std::vector<std::size_t> counts_;
    /// Kept from one text to the next, since fresh memory costs more than the work in it.
    std::string rewritten_;
    std::string spare_;
};

}  // namespace kelvor
