// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/paths.h"

#include <algorithm>
#include <cstddef>

namespace kelvor {

namespace {

bool isNetworkPath(std::string_view path) {
    return path.starts_with("\\\\");
}

bool hasDrive(std::string_view path) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return path.size() >= 2 && isLetter(path[0]) && path[1] == ':' &&
           (path.size() == 2 || path[2] == '\\' || path[2] == '/');
}

std::size_t lastSeparator(std::string_view path) {
    // A path with a drive may be spelled with either.
    return isForeignPath(path) ? path.find_last_of("\\/") : path.rfind('/');
}

}  // namespace

bool isForeignPath(std::string_view path) {
    return hasDrive(path) || isNetworkPath(path);
}

char separatorOf(std::string_view path) {
    return isForeignPath(path) ? '\\' : '/';
}

std::string fileNamePart(std::string_view path) {
    const auto separator = lastSeparator(path);
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string directoryPart(std::string_view path) {
    const auto separator = lastSeparator(path);
    if (separator == std::string_view::npos) return "";
    const std::size_t rootLength = isNetworkPath(path) ? 2 : isForeignPath(path) ? 0 : 1;
    return std::string(path.substr(0, std::max(separator, rootLength)));
}

std::string joinPath(std::string_view directory, std::string_view name) {
    std::string path(directory);
    const char separator = separatorOf(directory);
    if (!path.empty() && lastSeparator(path) != path.size() - 1) path += separator;
    return path.append(name);
}

}  // namespace kelvor
