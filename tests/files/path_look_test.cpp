// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/path_look.h"

#include <cerrno>

#include "tests/kit/faults.h"

namespace kelvor {
namespace {

TEST(PathLook, TellsWhatStandsThereOrMay) {
    const ScratchDirectory directory;
    directory.write("file", "");
    const std::string closed = directory / "closed";
    for (const auto& folder : {closed, directory / "folder"}) std::filesystem::create_directory(folder);
    std::filesystem::create_directory_symlink("folder", directory / "link");
    std::filesystem::create_symlink("nowhere", directory / "dangling");
    std::filesystem::create_symlink("loop", directory / "loop");
    ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
    using enum PathKind;
    // The kind behind links and that of a link itself, the error, whether it may be there.
    const std::tuple<std::string, PathKind, PathKind, int, bool> rows[] = {
        {"folder", folder, folder, 0, true},
        {"pipe", file, file, 0, true},
        {"link", folder, file, 0, true},
        {"dangling", none, file, ENOENT, false},
        {"loop", none, file, ELOOP, true},
        {"missing", none, none, ENOENT, false},
        {"file/below", none, none, ENOTDIR, false},
        {std::string(300, 'x'), none, none, ENAMETOOLONG, false},
        {"closed/any", none, none, EACCES, true},
    };
    chmod(directory.path().c_str(), 0755);
    chmod(closed.c_str(), 0);
    const int status = asOrdinaryUser([&] {
        for (const auto& [name, kind, kindOfLink, error, mayBeThere] : rows) {
            const PathLook look = lookAt(directory / name);
            EXPECT_EQ(std::tuple(look.kind, look.error, look.mayBeThere()), std::tuple(kind, error, mayBeThere))
                << name;
            EXPECT_EQ(lookAt(directory / name, Links::kept).kind, kindOfLink) << name;
        }
    });
    EXPECT_EQ(status, 0);
    chmod(closed.c_str(), 0700);
}

}  // namespace
}  // namespace kelvor
