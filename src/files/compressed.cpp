// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/compressed.h"

#include <zstd.h>

#include <memory>
#include <new>

namespace kelvor {

namespace {

struct Free {
    void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }
};

/// What data begins with; the library also takes data that begins otherwise, as a frame to be passed over.
constexpr std::string_view frameBegin = "\x28\xB5\x2F\xFD";

}  // namespace

std::string compressed(std::string_view bytes) {
    const std::unique_ptr<ZSTD_CCtx, Free> context(ZSTD_createCCtx());
    if (!context || ZSTD_isError(ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1)) != 0)
        throw std::bad_alloc();
    std::string data(ZSTD_compressBound(bytes.size()), '\0');
    const auto size = ZSTD_compress2(context.get(), data.data(), data.size(), bytes.data(), bytes.size());
    // With room for the worst case memory is all that it can lack.
    if (ZSTD_isError(size) != 0) throw std::bad_alloc();
    data.resize(size);
    return data;
}

std::optional<std::string> decompressed(std::string_view data, std::size_t mostBytes) {
    // A size that is not told, and any failure, is a number beyond all sizes.
    const auto size = ZSTD_getFrameContentSize(data.data(), data.size());
    const bool isOneFrame =
        data.starts_with(frameBegin) && ZSTD_findFrameCompressedSize(data.data(), data.size()) == data.size();
    if (size > mostBytes || !isOneFrame) return std::nullopt;
    std::string bytes(size, '\0');
    if (ZSTD_decompress(bytes.data(), bytes.size(), data.data(), data.size()) != size) return std::nullopt;
    return bytes;
}

std::string zstdVersion() {
    return ZSTD_versionString();
}

}  // namespace kelvor
