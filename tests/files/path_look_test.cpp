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
    const struct {
        std::string name;
        PathKind kind;
        PathKind kindOfLink;
        int error = 0;
        bool mayBeThere = true;
    } rows[] = {
        {"folder", folder, folder},
        {"file", file, file},
        {"pipe", file, file},
        {"link", folder, file},
        {"dangling", none, file, ENOENT, false},
        {"loop", none, file, ELOOP},
        {"missing", none, none, ENOENT, false},
        {"file/below", none, none, ENOTDIR, false},
        {std::string(300, 'x'), none, none, ENAMETOOLONG, false},
        {"closed/any", none, none, EACCES},
    };
    chmod(directory.path().c_str(), 0755);
    chmod(closed.c_str(), 0);
    const int status = asOrdinaryUser([&] {
        for (const auto& row : rows) {
            const PathLook look = lookAt(directory / row.name);
            EXPECT_EQ(look.kind, row.kind) << row.name;
            EXPECT_EQ(look.error, row.error) << row.name;
            EXPECT_EQ(look.mayBeThere(), row.mayBeThere) << row.name;
            EXPECT_EQ(lookAt(directory / row.name, Links::kept).kind, row.kindOfLink) << row.name;
        }
    });
    EXPECT_EQ(status, 0);
    chmod(closed.c_str(), 0700);
}

}  // namespace
}  // namespace kelvor
