// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/relative_path.h"

#include <cstddef>
#include <utility>

#include "base/error.h"
#include "files/paths.h"
#include "text/letter_case.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

constexpr char slash = '/';

constexpr char backslash = '\\';

constexpr char none = '\0';

/// The one by which a path is written, whatever its kind; `none` when it has none.
char ownSeparator(std::string_view path) {
    if (isForeignPath(path)) return backslash;
    const std::size_t first = path.find_first_of("/\\");
    return first == std::string_view::npos ? none : path[first];
}

bool isNetworkPath(std::string_view path) {
    return path.starts_with("\\\\");
}

struct Place {
    std::string root;
    std::vector<std::string> directories;
    std::string file;
};

/// Takes a part out; the last one of an empty list is as little there as any other.
std::string takePart(std::vector<std::string>& parts, std::size_t index) {
    if (index >= parts.size()) throw Error(error_number::subscriptOutOfRange, "A path has no separator");
    std::string part = std::move(parts[index]);
    parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(index));
    return part;
}

/// @param separator  the path's own
Place placeOf(std::string_view path, char separator) {
    Place place;
    std::vector<std::string> parts = splitToCollection(path, {&separator, 1});
    place.root = takePart(parts, 0);
    // Behind one more empty part the server is the root; its share counts as a directory.
    if (separator == backslash && place.root.empty()) place.root = takePart(parts, 1);
    place.file = takePart(parts, parts.size() - 1);
    place.directories = std::move(parts);
    return place;
}

}  // namespace

std::string relativePath(std::string_view fromPath, std::string_view toPath, bool isUntitled, char separator) {
    const char own = ownSeparator(fromPath);
    const bool mixed = own != none && ownSeparator(toPath) != none && own != ownSeparator(toPath);
    if (isUntitled || isNetworkPath(fromPath) != isNetworkPath(toPath) || mixed) return std::string(toPath);
    const bool native = own == slash;
    const Place from = placeOf(fromPath, own);
    const Place to = placeOf(toPath, own);
    const auto same = [&](const std::string& left, const std::string& right) {
        return native ? left == right : equalIgnoringCase(left, right);
    };
    if (!same(from.root, to.root)) return std::string(toPath);

    const char written = native ? slash : separator;
    std::size_t common = 0;
    while (common < from.directories.size() && common < to.directories.size() &&
           same(from.directories[common], to.directories[common]))
        ++common;
    std::string result;
    for (std::size_t i = common; i < from.directories.size(); ++i) result.append("..") += written;
    for (std::size_t i = common; i < to.directories.size(); ++i) result.append(to.directories[i]) += written;
    return result + to.file;
}

std::vector<std::string> splitToCollection(std::string_view text, std::string_view delimiter) {
    std::vector<std::string> parts;
    const TextSearch search(delimiter);
    std::size_t begin = 0;
    for (auto hit = search.find(text); hit; hit = search.find(text, begin)) {
        parts.emplace_back(text.substr(begin, hit->position - begin));
        begin = hit->position + hit->length;
    }
    if (begin > 0) parts.emplace_back(text.substr(begin));
    return parts;
}

}  // namespace kelvor
