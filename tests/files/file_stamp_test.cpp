// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/file_stamp.h"

#include <fcntl.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include "tests/kit/faults.h"

namespace kelvor {
namespace {

using Act = std::function<void(const ScratchDirectory&)>;

/// Gives the file the times that it had before `act`, or the far future.
Act withTimesOf(const Act& act, bool future = false) {
    return [=](const ScratchDirectory& directory) {
        const std::string path = directory / "a.htm";
        struct stat before {};
        ASSERT_EQ(stat(path.c_str(), &before), 0);
        // A clock of coarse ticks goes on.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        act(directory);
        timespec times[] = {before.st_atim, before.st_mtim};
        if (future) times[0] = times[1] = {4070908800, 0};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    };
}

Act writing(const std::string& bytes) {
    return [=](const ScratchDirectory& directory) { directory.write("a.htm", bytes); };
}

Act replacing(const std::string& bytes) {
    return [=](const ScratchDirectory& directory) {
        std::filesystem::rename(directory.write("new", bytes), directory / "a.htm");
    };
}

/// The file goes on elsewhere, so that no other one gets its number, and `act` follows.
Act removing(const Act& act = [](const auto&) {}) {
    return [=](const ScratchDirectory& directory) {
        std::filesystem::rename(directory / "a.htm", directory / "b.htm");
        act(directory);
    };
}

TEST(FileStamp, TellsWhatHasBecomeOfAFile) {
    using enum DiskState;
    const struct {
        const char* what;
        Act act;
        DiskState state;
    } rows[] = {
        {"nothing", [](const auto&) {}, same},
        {"touched", withTimesOf([](const auto&) {}, true), same},
        {"the same bytes again", writing("old text"), same},
        {"other bytes", writing("another text"), changed},
        {"as many other bytes, with the old times", withTimesOf(writing("new text")), changed},
        {"other bytes of the future", withTimesOf(writing("new text"), true), changed},
        {"cut short", writing(""), changed},
        {"the same bytes in another file", replacing("old text"), same},
        {"another file", replacing("new text"), replaced},
        {"removed", removing(), gone},
        {"removed, with its folder a file", removing([](const auto& directory) {
             std::filesystem::remove_all(directory.path());
             std::ofstream(directory.path()) << "file";
         }),
         gone},
        {"made anew", removing(writing("new text")), replaced},
        {"a directory", removing([](const auto& directory) { std::filesystem::create_directory(directory / "a.htm"); }),
         replaced},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const ScratchDirectory directory;
        const std::string path = directory.write("a.htm", "old text");
        FileStamp known = readStamp(path);
        row.act(directory);
        EXPECT_EQ(lookAgain(known, path), row.state);
        // Looked at again at once, without a read where it is the same, and accepted as it is now.
        const auto unread = failing(&SystemCalls::pread, row.state == same ? EIO : 0);
        EXPECT_EQ(lookAgain(known, path), row.state);
        auto accepted = stampNow(path);
        ASSERT_EQ(accepted.has_value(), row.state != gone);
        EXPECT_EQ(accepted ? lookAgain(*accepted, path) : same, same);
    }
}

TEST(FileStamp, WhatCannotBeReadIsChangedAndCanBeAcceptedAllTheSame) {
    const ScratchDirectory directory;
    const std::string path = directory.write("a.htm", "old text");
    FileStamp known = readStamp(path);
    writing("new text")(directory);
    const auto unreadable = failing(&SystemCalls::pread, EACCES);
    EXPECT_NE(errorOf([&] { readStamp(path); }), "");
    EXPECT_EQ(lookAgain(known, path), DiskState::changed);
    auto accepted = stampNow(path);
    EXPECT_EQ(lookAgain(*accepted, path), DiskState::same);
    const auto hidden = failing(&SystemCalls::stat, EACCES);
    EXPECT_EQ(lookAgain(known, path), DiskState::changed);
    EXPECT_EQ(stampNow(path), std::nullopt);
}

}  // namespace
}  // namespace kelvor
