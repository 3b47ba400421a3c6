// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/block_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelvor {

namespace {

/// In bytes; a block that has grown to twice as much is split.
constexpr std::size_t blockSize = std::size_t{32} << 10;

}  // namespace

BlockText::BlockText(std::string text) : size_(text.size()) {
    blocks_.push_back(std::move(text));
    splitBlock();
}

void BlockText::replace(std::size_t start, std::size_t removed, std::string_view inserted) {
    seek(start);
    remove(start - begin_, removed);
    blocks_[index_].insert(start - begin_, inserted);
    size_ += inserted.size() - removed;
    splitBlock();
}

std::string BlockText::take() {
    std::string text;
    text.reserve(size_);
    for (std::string& block : blocks_) text += std::exchange(block, {});
    *this = BlockText("");
    return text;
}

/// Goes to a block that holds the place or ends at it.
void BlockText::seek(std::size_t place) {
    while (place < begin_) begin_ -= blocks_[--index_].size();
    while (place - begin_ > blocks_[index_].size()) begin_ += blocks_[index_++].size();
}

void BlockText::remove(std::size_t offset, std::size_t count) {
    std::string& first = blocks_[index_];
    const std::size_t here = std::min(count, first.size() - offset);
    first.erase(offset, here);
    count -= here;
    const auto next = blocks_.begin() + static_cast<std::ptrdiff_t>(index_) + 1;
    auto end = next;
    while (count > 0 && count >= end->size()) count -= (end++)->size();
    if (count > 0) end->erase(0, count);
    blocks_.erase(next, end);
}

void BlockText::splitBlock() {
    if (blocks_[index_].size() <= 2 * blockSize) return;
    const std::string whole = std::move(blocks_[index_]);
    std::vector<std::string> parts;
    parts.reserve(whole.size() / blockSize + 1);
    for (std::size_t place = 0; place < whole.size(); place += blockSize) {
        parts.push_back(whole.substr(place, blockSize));
    }
    blocks_[index_] = std::move(parts.front());
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(index_) + 1,
                   std::make_move_iterator(parts.begin() + 1), std::make_move_iterator(parts.end()));
}

}  // namespace kelvor
