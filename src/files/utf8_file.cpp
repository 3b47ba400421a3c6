// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/utf8_file.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include "files/file_error.h"
#include "files/system_calls.h"
#include "text/utf8_check.h"

namespace kelvor {

namespace {

/// In bytes, few enough to stay in the processor's own memory from one look at them to the next.
constexpr std::size_t room = std::size_t{1} << 18;

}  // namespace

Utf8File::Utf8File(const std::string& path)
    : path_(path), opened_(openToRead(path)), memory_(std::make_unique_for_overwrite<char[]>(room)) {
}

std::optional<std::string_view> Utf8File::next() {
    const bool isFirst = place_ == 0;
    if (size() == 0) return std::nullopt;
    std::string_view part = read();
    if (!isValidUtf8(part)) return std::nullopt;
    lineEnds_.add(part);
    if (isFirst) {
        encoding_ = encodingOfMark(part);
        part.remove_prefix(markOf(encoding_).size());
    }
    return part.empty() && !atEnd_ ? next() : part;
}

FileStamp Utf8File::stamp() const {
    FileStamp stamp = stampOf(opened_.status, hasher_.hash());
    stamp.size = static_cast<off_t>(place_);
    return stamp;
}

/// As many whole characters as there is room for; at the end what is left. What is torn there belongs to none.
std::string_view Utf8File::read() {
    length_ -= given_;
    std::memmove(memory_.get(), memory_.get() + given_, length_);
    for (;;) {
        const auto count = uninterrupted([&] {
            return systemCalls().pread(opened_.file.descriptor(), memory_.get() + length_, room - length_,
                                       static_cast<off_t>(place_));
        });
        if (count < 0) throw fileError(errno, path_);
        hasher_.add({memory_.get() + length_, static_cast<std::size_t>(count)});
        place_ += static_cast<std::size_t>(count);
        length_ += static_cast<std::size_t>(count);
        const std::string_view bytes(memory_.get(), length_);
        // One byte less than there are: the last may begin a character whose rest is still to come.
        atEnd_ = count == 0;
        given_ = atEnd_ ? length_ : pieceEnd(bytes, 0, length_ - 1, Encoding::utf8);
        if (given_ > 0 || atEnd_) return bytes.substr(0, given_);
    }
}

}  // namespace kelvor
