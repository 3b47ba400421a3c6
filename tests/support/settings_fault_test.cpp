#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "platform/paths.h"
#include "tests/support/settings_faults.h"

namespace kelvor {
namespace {

TEST_F(SettingsFaults, LivesWithJunkBehindTheDataAndInTheJournal) {
    const std::string sound = fill();
    directory.write("settings/settings.db", sound + std::string(500, 'j'));
    directory.write("settings/settings.db-journal", std::string(500, 'j'));
    directory.write("settings/settings.db.new", "left by a start that was stopped");
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    SaveSetting(application, "User", "Name", "Eve");
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
    EXPECT_EQ(notices.texts.size(), 0U);
}

TEST_F(SettingsFaults, TakesTheJournalOfADamagedFileAlong) {
    directory.write("settings/settings.db", "");
    directory.write("settings/settings.db-journal", "its journal");
    EXPECT_EQ(GetSetting(application, "User", "Name", "standard"), "standard");
    expectOneNotice("set aside");
    EXPECT_FALSE(fs::exists(file() + "-journal"));
    EXPECT_EQ(setAside().size(), 2U);
}

TEST_F(SettingsFaults, StartsWithTheStoredValuesWhenTheFileIsLocked) {
    fill();
    OtherConnection other(file());
    other.run("BEGIN EXCLUSIVE");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(1500));
    EXPECT_LT(waited, std::chrono::seconds(5));
    expectOneNotice("locked");
    expectWorksInMemory();
    SaveSetting(application, "User", "Name", "Eve");
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
    closeSettings();
    other.run("COMMIT");
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    EXPECT_EQ(notices.texts.size(), 0U);
}

TEST_F(SettingsFaults, KeepsAllValuesWhenALockComesLater) {
    fill();
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    OtherConnection other(file());
    other.run("BEGIN EXCLUSIVE");
    SaveSetting(application, "User", "Name", "Eve");
    expectOneNotice("locked");
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
    EXPECT_EQ(countStrings(), 12U);
    expectWorksInMemory();
    other.run("ROLLBACK");
}

TEST_F(SettingsFaults, WaitsForAShortLock) {
    fill();
    OtherConnection other(file());
    other.run("BEGIN EXCLUSIVE");
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.run("COMMIT");
    });
    SaveSetting(application, "User", "Name", "Eve");
    release.join();
    closeSettings();
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
    EXPECT_EQ(notices.texts.size(), 0U);
}

TEST_F(SettingsFaults, GoesOnInMemoryWithoutAUsablePlace) {
    fs::create_directory(file());
    const std::pair<std::string, const char*> rows[] = {
        {"", "There is no directory"},
        {directory.path("missing/settings"), "No such file or directory"},
        {directory.path("settings"), "no regular file"},
    };
    for (const auto& [place, part] : rows) {
        SCOPED_TRACE(place);
        closeSettings();
        const ScopedDirectories there(directory.program(), place);
        EXPECT_EQ(GetSetting(application, "User", "Name", "standard"), "standard");
        expectOneNotice(part);
        expectWorksInMemory();
    }
    EXPECT_TRUE(fs::is_directory(file()));
}

TEST_F(SettingsFaults, RefusesAPipeAtOnce) {
    ASSERT_EQ(mkfifo(file().c_str(), 0600), 0);
    EXPECT_EQ(GetSetting(application, "User", "Name", "standard"), "standard");
    expectOneNotice("no regular file");
    expectWorksInMemory();
}

TEST_F(SettingsFaults, GoesOnInMemoryWhenTheFileTurnsReadOnly) {
    fill();
    // The super-user writes to everything, so the test is somebody else for a while.
    const auto self = geteuid();
    fs::permissions(directory.path(""), fs::perms(0755));
    fs::permissions(directory.path("settings"), fs::perms(0555));
    fs::permissions(file(), fs::perms(0444));
    if (self == 0) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    const int writable = open(file().c_str(), O_WRONLY | O_CLOEXEC);
    EXPECT_LT(writable, 0) << "the fault is not there";
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    EXPECT_EQ(notices.texts.size(), 0U);
    SaveSetting(application, "User", "Name", "Eve");
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
    EXPECT_EQ(countStrings(), 12U);
    expectOneNotice("readonly");
    expectWorksInMemory();
    closeSettings();
    if (self == 0) {
        ASSERT_EQ(seteuid(self), 0);
    }
    fs::permissions(directory.path("settings"), fs::perms(0755));
}

TEST_F(SettingsFaults, LosesNothingWhenNoMoreCanBeWritten) {
    const std::string before = fill();
    for (const rlim_t limit : {rlim_t{0}, rlim_t{600}, rlim_t{before.size()}}) {
        SCOPED_TRACE(limit);
        closeSettings();
        notices.texts.clear();
        const FileSizeLimit full(limit);
        EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
        SaveSetting(application, "User", "large", std::string(200000, 'y'));
        EXPECT_EQ(notices.texts.size(), 1U);
        notices.texts.clear();
        EXPECT_EQ(GetSetting(application, "User", "large").size(), 200000U);
        EXPECT_EQ(countStrings(), 12U);
        expectWorksInMemory();
    }
    closeSettings();
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    EXPECT_EQ(GetSetting(application, "User", "large", "none"), "none");
    EXPECT_EQ(countStrings(), 12U);
    EXPECT_EQ(notices.texts.size(), 0U);
}

/// Writes pairs of equal values until it is killed, and acknowledges each pair on `acknowledge`.
[[noreturn]] void writeUntilKilled(int acknowledge, int from) {
    for (int number = from;; ++number) {
        const std::string value = std::to_string(number) + std::string(2000, ' ');
        SaveSetting(application, "User", "first", value);
        SaveSetting(application, "User", "second", value);
        if (write(acknowledge, &number, sizeof number) != sizeof number) _exit(1);
    }
}

TEST_F(SettingsFaults, KeepsEveryAcknowledgedWriteWhenKilled) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    int acknowledged = 0;
    for (int round = 0; round < 25; ++round) {
        closeSettings();
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        const auto child = fork();
        if (child == 0) writeUntilKilled(ends[1], acknowledged + 1);
        close(ends[1]);
        usleep(static_cast<useconds_t>(random() % 40000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        while (read(ends[0], &acknowledged, sizeof acknowledged) == sizeof acknowledged) continue;
        close(ends[0]);
        const int first = std::atoi(GetSetting(application, "User", "first", "0").c_str());
        const int second = std::atoi(GetSetting(application, "User", "second", "0").c_str());
        ASSERT_GE(second, acknowledged);
        ASSERT_GE(first, second);
        ASSERT_LE(first, acknowledged + 1);
    }
    EXPECT_GT(acknowledged, 0);
    EXPECT_EQ(notices.texts.size(), 0U);
    EXPECT_TRUE(setAside().empty());
}

}  // namespace
}  // namespace kelvor
