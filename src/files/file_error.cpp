// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/file_error.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>

namespace kelvor {

namespace {

struct Meaning {
    int code;
    int number;
    const char* words;
};

constexpr Meaning meanings[] = {
    {ENOENT, error_number::fileNotFound, "File not found"},
    {ENOTDIR, error_number::pathNotFound, "The folder does not exist"},
    {ENAMETOOLONG, error_number::badFileName, "The file name is too long"},
    {EISDIR, error_number::pathAccess, "This is a folder, not a file"},
    {ELOOP, error_number::pathAccess, "The links lead in a circle"},
    {EACCES, error_number::permissionDenied, "Permission denied"},
    {EPERM, error_number::permissionDenied, "Permission denied"},
    {ETXTBSY, error_number::permissionDenied, "The program in this file is running"},
    {EROFS, error_number::permissionDenied, "The disk is read-only"},
    {EEXIST, error_number::fileAlreadyExists, "File already exists"},
    {ENOSPC, error_number::diskFull, "The disk is full"},
    {EDQUOT, error_number::diskFull, "Your share of the disk is full"},
    {EFBIG, error_number::diskFull, "The file is larger than the disk allows"},
    {ENOMEM, error_number::outOfMemory, "There is not enough memory"},
    {EIO, error_number::deviceError, "The disk reports an error"},
    {EBUSY, error_number::pathAccess, "Another program is using it"},
    {EMFILE, error_number::pathAccess, "Too many files are open"},
    {ENFILE, error_number::pathAccess, "Too many files are open"},
    {ENXIO, error_number::deviceUnavailable, "The disk is gone"},
    {ENODEV, error_number::deviceUnavailable, "The disk is gone"},
    {ESTALE, error_number::deviceUnavailable, "The disk is gone"},
};

}  // namespace

Error pathError(int number, const std::string& words, const std::string& path) {
    return {number, words + ": " + path, words + "."};
}

Error fileError(int code, const std::string& path) {
    const auto* meaning =
        std::find_if(std::begin(meanings), std::end(meanings), [&](const Meaning& row) { return row.code == code; });
    if (meaning != std::end(meanings)) return pathError(meaning->number, meaning->words, path);
    return pathError(error_number::pathAccess, std::generic_category().message(code), path);
}

Error notRegularError(unsigned mode, const std::string& path) {
    if (S_ISDIR(mode)) return fileError(EISDIR, path);
    const char* kind = S_ISFIFO(mode) ? "a pipe" : S_ISSOCK(mode) ? "a socket" : "a device";
    return pathError(error_number::pathAccess, std::string("This is ") + kind + ", not a file", path);
}

}  // namespace kelvor
