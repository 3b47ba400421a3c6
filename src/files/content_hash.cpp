// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/content_hash.h"

#include <xxhash.h>

#include <new>

namespace kelvor {

namespace {

ContentHash hashFrom(const XXH128_hash_t& hash) {
    return {hash.low64, hash.high64};
}

}  // namespace

ContentHash hashOf(std::string_view bytes) {
    return hashFrom(XXH3_128bits(bytes.data(), bytes.size()));
}

ContentHasher::ContentHasher() : state_(XXH3_createState()) {
    if (!state_) throw std::bad_alloc();
    XXH3_128bits_reset(state_.get());
}

ContentHasher::~ContentHasher() = default;

void ContentHasher::Free::operator()(XXH3_state_s* state) const {
    XXH3_freeState(state);
}

void ContentHasher::add(std::string_view bytes) {
    XXH3_128bits_update(state_.get(), bytes.data(), bytes.size());
}

ContentHash ContentHasher::hash() const {
    return hashFrom(XXH3_128bits_digest(state_.get()));
}

std::string xxhashVersion() {
    constexpr unsigned step = 100;
    const unsigned number = XXH_versionNumber();
    return std::to_string(number / step / step) + '.' + std::to_string(number / step % step) + '.' +
           std::to_string(number % step);
}

}  // namespace kelvor
