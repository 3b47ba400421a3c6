// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/step.h"

namespace kelvor {

/// How a file holds its characters. A byte order mark belongs to the encoding and not to the text.
enum class Encoding { utf8, utf8WithMark, utf16LittleEndian, utf16BigEndian, windows1252 };

/// A file's text in UTF-8 and the encoding that gives the same bytes back.
struct DecodedText {
    std::string text;
    Encoding encoding = Encoding::utf8;
};

/// The text of a file's bytes. UTF-16 needs its mark and no stray surrogate; valid UTF-8 is UTF-8; all else is
/// Windows-1252, whose five free bytes stand for the control characters of the same number. So any bytes
/// come back from encode() as they were.
DecodedText decode(std::string bytes, const Step& step = noStep);

/// The encoding that the mark at the begin of a file names; utf8 when there is none. Whether the file is of that
/// encoding is for decode() to say.
Encoding encodingOfMark(std::string_view bytes);
/// The bytes of an encoding's mark; none for those without one.
std::string_view markOf(Encoding encoding);
bool isUtf16(Encoding encoding);

/// The bytes of `text` (valid UTF-8), or nothing when it has a character that the encoding lacks.
std::optional<std::string> encode(std::string_view text, Encoding encoding);

/// Files too large to wait for are worked on piece by piece. A piece has no mark, and no character of it is cut.
/// @return where a piece of about `length` bytes ends that begins at `start`
std::size_t pieceEnd(std::string_view bytes, std::size_t start, std::size_t length, Encoding encoding);
/// Appends the text of a piece; false when the encoding has no such bytes.
bool appendDecoded(std::string& text, std::string_view bytes, Encoding encoding);
/// Appends the bytes of a piece of text; false when the encoding lacks one of its characters.
bool appendEncoded(std::string& bytes, std::string_view text, Encoding encoding);
/// Whether all pieces are so; `isSo` is isAscii, isValidUtf8 or the like.
bool holdsByPieces(std::string_view bytes, bool (*isSo)(std::string_view), const Step& step);

}  // namespace kelvor
