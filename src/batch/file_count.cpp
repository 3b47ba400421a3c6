// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/file_count.h"

#include <algorithm>
#include <exception>

#include "files/whole_file.h"
#include "text/letter_case.h"
#include "text/line_ends.h"
#include "text/utf8_check.h"

namespace kelvor {

namespace {

/// How much is searched between two pauses. It stays in the processor's cache, and even with a match at every byte
/// it takes a few milliseconds.
constexpr std::size_t leastPiece = std::size_t{1} << 18;

/// What goOn's false turns into on the way out of a count.
struct Stopped {};

/// Whether the text of `bytes` is exactly what stands for a file that cannot be read.
bool tellsUnreadable(std::string_view bytes) {
    const auto longest = 2 * unreadableText.size() + markOf(Encoding::utf16LittleEndian).size();
    return bytes.size() <= longest && decode(std::string(bytes)).text == unreadableText;
}

}  // namespace

FileCount::FileCount(std::string_view text, bool matchCase, std::function<bool()> goOn)
    : search_(text, {.matchCase = matchCase}),
      pause_([goOn = std::move(goOn)] {
          if (!goOn()) throw Stopped();
      }),
      textLength_(text.size()),
      // A letter has three bytes at most in one case where it has one in the other.
      longestMatch_(matchCase ? text.size() : 3 * text.size()),
      pieceLength_(std::max(leastPiece, 8 * text.size())),
      isAscii_(isAscii(text)),
      needsBeyondAscii_(matchCase ? !isAscii_ : !isAscii(foldCase(text))),
      hasLineEnd_(text.find_first_of("\r\n") != std::string_view::npos) {
}

FileCount::Result FileCount::in(const std::string& path) {
    try {
        return countInFile(path);
    } catch (const Stopped&) {
        return {Outcome::stopped};
    } catch (const std::exception&) {
        return {Outcome::unreadable};
    }
}

FileCount::Result FileCount::countInFile(const std::string& path) {
    const auto bytes = file_.read(path, pause_);
    if (tellsUnreadable(bytes)) return {Outcome::unreadable};
    if (hasLineEnd_) {
        const auto text = asReadWhole(decode(std::string(bytes), pause_).text);
        return {Outcome::counted, countIn(withLineEnd(text, "\r\n")).count};
    }
    const auto marked = encodingOfMark(bytes);
    const auto unmarked = bytes.substr(markOf(marked).size());
    const auto count = isUtf16(marked) ? countByPieces(unmarked, marked) : countAsUtf8(unmarked);
    return {Outcome::counted, count ? *count : *countByPieces(bytes, Encoding::windows1252)};
}

/// Counts in the bytes as they are; nothing when that is not the count of their text, since they are no UTF-8.
std::optional<std::size_t> FileCount::countAsUtf8(std::string_view bytes) const {
    if (needsBeyondAscii_ && holdsByPieces(bytes, isAscii, pause_)) return 0;
    if (!isAscii_ && !holdsByPieces(bytes, isValidUtf8, pause_)) return std::nullopt;
    // ASCII characters are the same bytes in all encodings but UTF-16, and no other byte there stands for one.
    const Tally tally = countIn(bytes);
    if (isAscii_ && tally.longerMatch && !holdsByPieces(bytes, isValidUtf8, pause_)) return std::nullopt;
    return tally.count;
}

/// Decodes and counts piece by piece; nothing when the bytes are not of that encoding.
std::optional<std::size_t> FileCount::countByPieces(std::string_view bytes, Encoding encoding) const {
    Tally tally;
    std::string text;
    for (std::size_t start = 0, from = 0; start < bytes.size();) {
        pause_();
        const auto end = pieceEnd(bytes, start, pieceLength_, encoding);
        text.erase(0, std::exchange(from, 0));
        if (!appendDecoded(text, bytes.substr(start, end - start), encoding)) return std::nullopt;
        countTo(text.size(), text, from, tally);
        start = end;
    }
    return tally.count;
}

FileCount::Tally FileCount::countIn(std::string_view text) const {
    Tally tally;
    std::size_t from = 0;
    for (std::size_t end = 0; end < text.size();) {
        pause_();
        end += std::min(pieceLength_, text.size() - end);
        countTo(end, text, from, tally);
    }
    return tally;
}

/// Counts the matches that lie between `from` and `end`, and moves `from` to where the next one may begin.
void FileCount::countTo(std::size_t end, std::string_view text, std::size_t& from, Tally& tally) const {
    while (const auto match = search_.find(text, from, end)) {
        ++tally.count;
        from = match->position + match->length;
        tally.longerMatch |= match->length != textLength_;
    }
    from = std::max(from, end - std::min(end, longestMatch_));
}

}  // namespace kelvor
