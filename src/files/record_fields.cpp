// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/record_fields.h"

namespace kelvor {

void append(std::string& bytes, std::uint64_t number) {
    for (std::size_t i = 0; i < numberSize; ++i) bytes += static_cast<char>(number >> (8 * i));
}

void append(std::string& bytes, const ContentHash& hash) {
    append(bytes, hash.low);
    append(bytes, hash.high);
}

std::string_view FieldReader::bytes(std::uint64_t size) {
    isGood_ = isGood_ && size <= rest_.size();
    if (!isGood_) return {};
    const auto taken = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return taken;
}

std::uint64_t FieldReader::number() {
    std::uint64_t value = 0;
    const auto taken = bytes(numberSize);
    for (std::size_t i = taken.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(taken[i]);
    return value;
}

ContentHash FieldReader::hash() {
    const auto low = number();
    return {low, number()};
}

}  // namespace kelvor
