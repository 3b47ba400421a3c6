// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// A text for many replacements in any places. It is kept in blocks, so that one costs as much as a block is long,
/// however long the text is.
class BlockText {
public:
    explicit BlockText(std::string text);

    std::size_t size() const { return size_; }
    /// `removed` bytes from `start` on, which must be there, give way to others.
    void replace(std::size_t start, std::size_t removed, std::string_view inserted);
    /// The text in one; the blocks go.
    std::string take();

private:
    void seek(std::size_t place);
    void remove(std::size_t offset, std::size_t count);
    void splitBlock();

    std::vector<std::string> blocks_;
    std::size_t size_;
    /// The block of the last change and where it begins: the next change is mostly near.
    std::size_t index_ = 0;
    std::size_t begin_ = 0;
};

}  // namespace kelvor
