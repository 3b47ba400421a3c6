#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// Case rules of all of Unicode that depend on no language. Texts are UTF-8.
std::string toUpper(std::string_view text);
std::string toLower(std::string_view text);

/// The text by which two spellings that differ in case only are the same. Every character folds to one
/// character, so nothing grows or shrinks in number of characters (of bytes it may).
std::string foldCase(std::string_view text);
bool equalIgnoringCase(std::string_view left, std::string_view right);

/// Order of two texts as a person sorts names: by the root collation, case ignored first.
int compareText(std::string_view left, std::string_view right);
/// Bytes whose order is that of compareText, except that they are equal where a person takes the texts for equal.
std::string textSortKey(std::string_view text);
/// Sorts by that order, with one look at each text; equal ones by their bytes.
void sortAsText(std::vector<std::string>& texts);

/// The text with `lineEnd` for each of its line ends: CR LF, a lone CR, a lone LF.
std::string withLineEnd(std::string_view text, std::string_view lineEnd);
/// The lines of a text, whatever ends them (CR LF, a lone CR, a lone LF), each ended by CR LF, the last one too.
std::string withLineEnds(std::string_view text);

/// What makes one text of another, in one piece from the first character that differs to the last.
struct TextChange {
    std::size_t position = 0;
    std::string_view removed;
    std::string_view inserted;
};
/// Both texts are UTF-8 and outlive the change; texts that are equal have an empty one.
TextChange changeBetween(std::string_view before, std::string_view after);

/// A text as a message quotes it: its first 200 bytes or so, and "..." when there are more.
std::string shortened(std::string_view text);
/// The position behind the first `count` characters of a UTF-8 text; its end when it has no more.
std::size_t positionBehind(std::string_view text, std::size_t count);

/// Code points in a UTF-8 text; CR LF counts as two.
std::size_t characterCount(std::string_view text);

}  // namespace kelvor
