#include "batch/file_count.h"

#include <algorithm>

#include "authoring/common.h"
#include "platform/code_points.h"
#include "platform/text.h"

namespace kelvor {

namespace {

/// How much is searched between two pauses. It stays in the processor's cache, and even with a match at every byte
/// it takes a few milliseconds.
constexpr std::size_t leastPiece = std::size_t{1} << 18;

/// What goOn's false turns into on the way out of a count.
struct Stopped {};

bool isUtf16(Encoding encoding) {
    return encoding == Encoding::utf16LittleEndian || encoding == Encoding::utf16BigEndian;
}

/// Whether the text of `bytes` is exactly what readWholeFile gives for a file that cannot be read.
bool tellsError(std::string_view bytes) {
    constexpr std::string_view error = "error";
    const auto longest = 2 * error.size() + markLength(Encoding::utf16LittleEndian);
    return bytes.size() <= longest && decode(bytes).text == error;
}

/// Where the piece that begins at `start` ends: not between the two units of one UTF-16 character.
std::size_t pieceEnd(std::string_view bytes, std::size_t start, std::size_t length, Encoding encoding) {
    const auto end = start + std::min(length, bytes.size() - start);
    if (end == bytes.size() || !isUtf16(encoding)) return end;
    const char high = bytes[end - (encoding == Encoding::utf16BigEndian ? 2 : 1)];
    return (high & 0xFC) == 0xD8 ? end - 2 : end;
}

}  // namespace

FileCount::FileCount(std::string_view text, bool matchCase, std::function<bool()> goOn)
    : search_(text, matchCase ? find_option::matchCase : 0),
      goOn_(std::move(goOn)),
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

void FileCount::pause() const {
    if (!goOn_()) throw Stopped();
}

FileCount::Result FileCount::countInFile(const std::string& path) {
    constexpr char endOfFileMark = 26;
    const auto bytes = file_.read(path, [this] { pause(); });
    if (tellsError(bytes)) return {Outcome::unreadable};
    // Such a mark makes all line ends alike, which only a text with one can tell.
    if (hasLineEnd_ && bytes.find(endOfFileMark) != std::string_view::npos)
        return {Outcome::counted, countIn(readWholeFile(path))};
    const auto marked = encodingOfMark(bytes);
    const auto unmarked = bytes.substr(markLength(marked));
    const auto count = isUtf16(marked) ? countByPieces(unmarked, marked) : countAsUtf8(unmarked);
    return {Outcome::counted, count ? *count : *countByPieces(bytes, Encoding::windows1252)};
}

/// Counts in the bytes as they are; nothing when that is not the count of their text, since they are no UTF-8.
std::optional<std::size_t> FileCount::countAsUtf8(std::string_view bytes) const {
    if (needsBeyondAscii_ && everyPiece(bytes, isAscii)) return 0;
    if (!isAscii_ && !everyPiece(bytes, isValidUtf8)) return std::nullopt;
    // ASCII characters are the same bytes in all encodings but UTF-16, and no other byte there stands for one.
    bool beyondAscii = false;
    const auto count = countIn(bytes, &beyondAscii);
    if (isAscii_ && beyondAscii && !everyPiece(bytes, isValidUtf8)) return std::nullopt;
    return count;
}

/// Decodes and counts piece by piece; nothing when the bytes are not of that encoding.
std::optional<std::size_t> FileCount::countByPieces(std::string_view bytes, Encoding encoding) const {
    std::size_t count = 0;
    std::string text;
    for (std::size_t start = 0, from = 0; start < bytes.size();) {
        pause();
        const auto end = pieceEnd(bytes, start, pieceLength_, encoding);
        const auto piece = decodePiece(bytes.substr(start, end - start), encoding);
        if (!piece) return std::nullopt;
        text.erase(0, std::exchange(from, 0)).append(*piece);
        count += countTo(text.size(), text, from, nullptr);
        start = end;
    }
    return count;
}

/// @param beyondAscii  is set when some match has more bytes than the text looked for
std::size_t FileCount::countIn(std::string_view text, bool* beyondAscii) const {
    std::size_t count = 0;
    std::size_t from = 0;
    for (std::size_t end = 0; end < text.size();) {
        pause();
        end += std::min(pieceLength_, text.size() - end);
        count += countTo(end, text, from, beyondAscii);
    }
    return count;
}

/// Counts the matches that lie between `from` and `end`, and moves `from` to where the next one may begin.
std::size_t FileCount::countTo(std::size_t end, std::string_view text, std::size_t& from, bool* beyondAscii) const {
    std::size_t count = 0;
    while (const auto match = search_.find(text, from, end)) {
        ++count;
        from = match->position + match->length;
        if (beyondAscii && match->length != textLength_) *beyondAscii = true;
    }
    from = std::max(from, end - std::min(end, longestMatch_));
    return count;
}

bool FileCount::everyPiece(std::string_view bytes, bool (*isSo)(std::string_view)) const {
    for (std::size_t start = 0; start < bytes.size();) {
        pause();
        auto end = start + std::min(pieceLength_, bytes.size() - start);
        // No character is cut; one has three continuation bytes at most.
        for (int i = 0; i < 3 && end < bytes.size() && isContinuationByte(bytes[end]); ++i) --end;
        if (!isSo(bytes.substr(start, end - start))) return false;
        start = end;
    }
    return true;
}

}  // namespace kelvor
