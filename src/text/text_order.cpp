// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_order.h"

#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/uversion.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>
#include <utility>

namespace kelvor {

namespace {

/// The order of the root collation; null when ICU's data are not there.
const icu::Collator* rootCollator() {
    static const std::unique_ptr<icu::Collator> collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }();
    return collator.get();
}

icu::StringPiece pieceOf(std::string_view text) {
    return {text.data(), static_cast<int32_t>(text.size())};
}

}  // namespace

int compareText(std::string_view left, std::string_view right) {
    if (const auto* collator = rootCollator()) {
        UErrorCode status = U_ZERO_ERROR;
        const auto order = collator->compareUTF8(pieceOf(left), pieceOf(right), status);
        if (U_SUCCESS(status) && order != UCOL_EQUAL) return order;
    }
    // The collation takes some different texts for equal; a sorted list needs one order for them all the same.
    return left.compare(right);
}

std::string textSortKey(std::string_view text) {
    const auto* collator = rootCollator();
    if (!collator) return std::string(text);  // ICU's data are not there
    const auto wide = icu::UnicodeString::fromUTF8(pieceOf(text));
    std::string key(static_cast<std::size_t>(wide.length()) * 3 + 16, '\0');
    const auto fill = [&] {
        return collator->getSortKey(wide, reinterpret_cast<uint8_t*>(key.data()), static_cast<int32_t>(key.size()));
    };
    const auto needed = static_cast<std::size_t>(fill());
    const bool fitted = needed <= key.size();
    key.resize(needed);
    if (!fitted) fill();
    return key;
}

void sortAsText(std::vector<std::string>& texts) {
    struct Keyed {
        std::string key;
        std::string text;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(texts.size());
    for (std::string& text : texts) {
        std::string key = textSortKey(text);
        keyed.push_back({std::move(key), std::move(text)});
    }
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& left, const Keyed& right) {
        return std::tie(left.key, left.text) < std::tie(right.key, right.text);
    });
    std::transform(keyed.begin(), keyed.end(), texts.begin(), [](Keyed& entry) { return std::move(entry.text); });
}

std::string icuVersion() {
    UVersionInfo version;
    u_getVersion(version);
    char text[U_MAX_VERSION_STRING_LENGTH];
    u_versionToString(version, text);
    return text;
}

}  // namespace kelvor
