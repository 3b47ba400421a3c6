#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <tuple>
#include <utility>

#include "platform/system_calls.h"
#include "tests/support/settings_faults.h"

namespace kelvor {
namespace {

struct SettingsCopy : SettingsFaults {
    std::string copy() const { return file() + ".good"; }
    std::string copyBytes() const { return directory.read("settings/settings.db.good"); }
};

std::string madeBySql(const TestDirectory& directory, const char* statements) {
    const std::string path = directory.path("other.db");
    fs::remove(path);
    OtherConnection(path).run(statements);
    return directory.read("other.db");
}

/// What can become of a sound file of several pages, each with its name.
std::vector<std::pair<const char*, std::string>> damagesOf(const std::string& sound, const TestDirectory& directory) {
    const auto overwritten = [&sound](std::size_t at, std::size_t count) {
        std::string bytes = sound;
        return bytes.replace(at, count, std::string(count, '\xA5'));
    };
    return {
        {"empty", ""},
        {"one byte", "S"},
        {"cut in the header", sound.substr(0, 50)},
        {"cut in the first page", sound.substr(0, 1000)},
        {"cut in the middle", sound.substr(0, sound.size() / 2)},
        {"cut at the last page", sound.substr(0, sound.size() - 4096)},
        {"no header", overwritten(0, 16)},
        {"page size", overwritten(16, 2)},
        {"schema page", overwritten(100, 300)},
        {"a page in the middle", overwritten(4096, 4096)},
        {"text", std::string(20000, 'k')},
        {"another program's table", madeBySql(directory, "CREATE TABLE setting (name, value)")},
        {"no table", madeBySql(directory, "CREATE TABLE a (b); DROP TABLE a")},
        {"keys not unique", madeBySql(directory,
                                      "CREATE TABLE setting (id INTEGER PRIMARY KEY, application, section, "
                                      "folded_key, key, value)")},
    };
}

TEST_F(SettingsCopy, SetsADamagedFileAsideAndStartsWithTheLastGoodCopy) {
    const std::string sound = fill();
    ASSERT_GT(sound.size(), 3 * 4096U);
    const std::string strings = allStrings();
    closeSettings();
    const std::string good = copyBytes();
    std::size_t kept = 0;
    for (const auto& [name, bytes] : damagesOf(sound, directory)) {
        for (const bool isGood : {true, false}) {
            SCOPED_TRACE(std::string(name) + (isGood ? "" : ", the copy too"));
            directory.write("settings/settings.db", bytes);
            directory.write("settings/settings.db.good", isGood ? good : bytes);
            EXPECT_EQ(GetSetting(application, "User", "Name", "standard"), isGood ? "Ann" : "standard");
            EXPECT_EQ(allStrings(), isGood ? strings : "");
            expectOneNotice(isGood ? "Kelvor starts with the last good copy of the settings, made on 20"
                                   : "Kelvor starts with fresh settings.");
            SaveSetting(application, "User", "Name", "Eve");
            closeSettings();
            EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
            EXPECT_EQ(allStrings(), isGood ? strings : "");
            closeSettings();
            EXPECT_EQ(notices.texts.size(), 0U);
            // All earlier ones are there still, and this one byte for byte.
            const auto files = setAside();
            EXPECT_EQ(files.size(), ++kept);
            EXPECT_TRUE(std::any_of(files.begin(), files.end(), [&, &damaged = bytes](const fs::path& path) {
                return directory.read("settings/" + path.filename().string()) == damaged;
            }));
        }
    }
}

TEST_F(SettingsCopy, HasTheValuesOfEveryClosedRunInTheCopy) {
    // Each run and what the copy gives for "a" and "b" after it.
    const std::tuple<std::function<void()>, const char*, const char*> runs[] = {
        {[] { SaveSetting(application, "User", "a", "1"); }, "1", "none"},
        {[] { SaveSetting(application, "User", "b", "2"); }, "1", "2"},
        {[] { SaveSetting(application, "User", "a", "3"); }, "3", "2"},
        {[] { DeleteSetting(application, "User", "b"); }, "3", "none"},
        {[this] {
             fs::remove(copy());
             GetSetting(application, "User", "a");
         },
         "3", "none"},
        // The clock has been set back since the copy was made.
        {[this] {
             fs::last_write_time(copy(), fs::file_time_type::clock::now() + std::chrono::hours(1));
             SaveSetting(application, "User", "a", "4");
         },
         "4", "none"},
    };
    for (const auto& [run, a, b] : runs) {
        run();
        closeSettings();
        directory.write("settings/settings.db", "");
        EXPECT_EQ(GetSetting(application, "User", "a", "none"), a);
        EXPECT_EQ(GetSetting(application, "User", "b", "none"), b);
        closeSettings();
        expectOneNotice("the last good copy");
    }
    // A run that only reads leaves the copy alone.
    const auto made = fs::last_write_time(copy());
    EXPECT_EQ(GetSetting(application, "User", "a"), "4");
    SaveSetting(application, "User", "a", "4");
    closeSettings();
    EXPECT_EQ(fs::last_write_time(copy()), made);
}

TEST_F(SettingsCopy, MakesNoCopyOfAFileThatGotDamaged) {
    const std::string sound = fill();
    const std::string good = copyBytes();
    SaveSetting(application, "User", "Name", "Eve");
    directory.write("settings/settings.db", std::string(sound.size(), 'd'));
    closeSettings();
    EXPECT_EQ(copyBytes(), good);
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    expectOneNotice("the last good copy");
}

TEST_F(SettingsCopy, UsesTheCopyInMemoryWhenTheDamagedFileCannotBeReplaced) {
    fill();
    directory.write("settings/settings.db", "damage");
    for (int start = 0; start < 2; ++start) {
        SystemCalls calls = kernelCalls();
        calls.fsync = [](int) { return errno = ENOSPC, -1; };
        const ScopedSystemCalls full(calls);
        EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
        EXPECT_EQ(countStrings(), 12U);
        expectOneNotice("cannot be replaced: No space left on device\r\n\r\nKelvor starts with the last good copy");
        expectWorksInMemory();
        closeSettings();
        EXPECT_EQ(directory.read("settings/settings.db"), "damage");
    }
    EXPECT_EQ(GetSetting(application, "User", "Name"), "Ann");
    expectOneNotice("set aside");
}

TEST_F(SettingsCopy, KeepsTheOldCopyInSilenceWhenANewOneCannotBeMade) {
    const auto failing = [](auto SystemCalls::*call, int code) {
        return [=] {
            SystemCalls calls = kernelCalls();
            calls.*call = [code](auto...) { return errno = code, -1; };
            return std::make_shared<ScopedSystemCalls>(calls);
        };
    };
    const std::pair<const char*, std::function<std::shared_ptr<void>()>> rows[] = {
        {"read-only directory", failing(&SystemCalls::open, EACCES)},
        {"disk full", [] { return std::make_shared<FileSizeLimit>(5000); }},
        {"device", failing(&SystemCalls::fsync, EIO)},
        {"locked",
         [this] {
             auto other = std::make_shared<OtherConnection>(file());
             other->run("BEGIN EXCLUSIVE");
             return other;
         }},
    };
    fill();
    const std::string good = copyBytes();
    for (const auto& [name, fault] : rows) {
        SCOPED_TRACE(name);
        SaveSetting(application, "User", "Name", name);
        {
            const auto inForce = fault();
            const auto start = std::chrono::steady_clock::now();
            closeSettings();
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
        }
        EXPECT_EQ(copyBytes(), good);
        EXPECT_FALSE(fs::exists(copy() + ".new"));
        EXPECT_EQ(GetSetting(application, "User", "Name"), name);
    }
    EXPECT_EQ(notices.texts.size(), 0U);
}

/// Stores a pair of equal values in each run, and acknowledges the runs that are closed on `acknowledge`.
[[noreturn]] void runUntilKilled(int acknowledge, int from) {
    for (int number = from;; ++number) {
        const std::string value = std::to_string(number) + std::string(20000, ' ');
        SaveSetting(application, "User", "first", value);
        SaveSetting(application, "User", "second", value);
        closeSettings();
        if (write(acknowledge, &number, sizeof number) != sizeof number) _exit(1);
    }
}

TEST_F(SettingsCopy, HasAWholeCopyAlsoWhenKilledWhileCopying) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    SaveSetting(application, "User", "first", "0");
    SaveSetting(application, "User", "second", "0");
    int stoppedBetween = 0;
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        closeSettings();
        const int from = std::atoi(GetSetting(application, "User", "first").c_str());
        closeSettings();
        notices.texts.clear();
        int acknowledged = from;
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        const auto child = fork();
        if (child == 0) {
            // Every other time it is stopped where the new copy is written and not in place yet.
            SystemCalls calls = kernelCalls();
            calls.fsync = [](int) { return raise(SIGKILL); };
            if (round % 2 == 0) systemCalls() = calls;
            runUntilKilled(ends[1], from + 1);
        }
        close(ends[1]);
        if (round % 2 != 0) {
            usleep(static_cast<useconds_t>(random() % 40000));
            kill(child, SIGKILL);
        }
        waitpid(child, nullptr, 0);
        while (read(ends[0], &acknowledged, sizeof acknowledged) == sizeof acknowledged) continue;
        close(ends[0]);
        stoppedBetween += fs::exists(copy() + ".new") ? 1 : 0;
        directory.write("settings/settings.db", "");
        const std::string first = GetSetting(application, "User", "first");
        ASSERT_EQ(GetSetting(application, "User", "second"), first);
        ASSERT_GE(std::atoi(first.c_str()), acknowledged);
        ASSERT_LE(std::atoi(first.c_str()), acknowledged + 1);
        expectOneNotice("the last good copy");
    }
    EXPECT_GE(stoppedBetween, 20);
}

}  // namespace
}  // namespace kelvor
