// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/content_hash.h"

namespace kelvor {

/// How long a number is in a record, in bytes. The lowest byte stands first.
constexpr std::size_t numberSize = 8;

/// Adds a field to a record.
void append(std::string& bytes, std::uint64_t number);
void append(std::string& bytes, const ContentHash& hash);

/// Takes fields off the front of a record, in their order; once there are not enough bytes it gives empty ones and is
/// good no more.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : rest_(bytes) {}

    bool isGood() const { return isGood_; }
    std::string_view rest() const { return rest_; }

    std::string_view bytes(std::uint64_t size);
    std::uint64_t number();
    ContentHash hash();

protected:
    void fail() { isGood_ = false; }

private:
    std::string_view rest_;
    bool isGood_ = true;
};

}  // namespace kelvor
