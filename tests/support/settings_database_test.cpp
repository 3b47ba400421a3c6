// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>

#include "files/places.h"
#include "files/system_calls.h"
#include "support/settings.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Something that is wrong until it is let go.
using Fault = std::shared_ptr<void>;

/// Another program's connection to a file, on which `statements` have been run.
Fault otherConnection(const std::string& path, const char* statements) {
    sqlite3* connection = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection, statements, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
    return {connection, sqlite3_close};
}

/// Another call in place of one of the kernel's by which the database works; the kernel's again without one.
void setDatabaseCall(const char* name, auto* call) {
    sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
    files->xSetSystemCall(files, name, reinterpret_cast<sqlite3_syscall_ptr>(call));
}

/// The database may open no file to write to it. Modes would not bind the super-user.
Fault readOnly() {
    setDatabaseCall(
        "open", +[](const char* path, int flags, int mode) {
            return (flags & O_RDWR) != 0 ? (errno = EACCES, -1) : ::open(path, flags, mode);
        });
    return {nullptr, [](void*) { setDatabaseCall("open", sqlite3_syscall_ptr{}); }};
}

/// What the database writes fails.
Fault failingWrites(int code) {
    static int failure;
    failure = code;
    const auto setWrite = [](auto* call) {
        for (const char* name : {"pwrite", "pwrite64"}) setDatabaseCall(name, call);
    };
    setWrite(+[](int, const void*, std::size_t, off_t) { return errno = failure, ssize_t{-1}; });
    return {nullptr, [=](void*) { setWrite(sqlite3_syscall_ptr{}); }};
}

Fault failure(auto SystemCalls::*call, int code) {
    return std::shared_ptr<ScopedSystemCalls>(new ScopedSystemCalls(failing(call, code)));
}

/// What the database does where it would sleep, which is when it waits for a lock.
std::function<void()> insteadOfSleep;

/// Over a sound store of several pages, closed. Each box must be expected.
struct SettingsFaults : testing::Test, FakePlatform {
    SettingsFaults() {
        insteadOfSleep = [this] { ++sleeps; };
        sqlite3_vfs_find(nullptr)->xSleep = [](sqlite3_vfs*, int microseconds) {
            insteadOfSleep();
            return microseconds;
        };
        for (int number = 0; number < 12; ++number)
            SaveSetting(application, "UserStrings", "label" + std::to_string(number), std::string(900, 'x'));
        setName("Ann");
        closeSettings();
        EXPECT_GT(read().size(), 3 * 4096U);
    }
    ~SettingsFaults() override {
        closeSettings();
        EXPECT_EQ(notices.size(), 0U);
    }

    /// Any other box than a critical one of the settings fails the test.
    Answer message(const Message& message) override {
        EXPECT_EQ(message.title, "Settings");
        EXPECT_EQ(message.icon, MessageIcon::critical);
        notices.push_back(message.text);
        return Answer::ok;
    }

    std::string read(const std::string& ending = "") const { return directory.read("settings/settings.db" + ending); }
    void write(const std::string& bytes, const std::string& ending = "") const {
        directory.write("settings/settings.db" + ending, bytes);
    }
    static void setName(const std::string& name) { SaveSetting(application, "User", "Name", name); }

    /// The stored name and how many of the filled-in strings are whole.
    static std::string contents() {
        const auto strings = GetAllSettings(application, "UserStrings").value_or(std::vector<Setting>());
        const auto whole = std::count_if(strings.begin(), strings.end(),
                                         [](const auto& row) { return row.value == std::string(900, 'x'); });
        return GetSetting(application, "User", "Name", "none") + " " + std::to_string(whole);
    }

    /// The bytes of the files that have been set aside.
    std::vector<std::string> setAside() const {
        std::vector<std::string> files;
        for (const auto& entry : fs::directory_iterator(directory.path("settings")))
            if (entry.path().string().starts_with(file + ".bad-"))
                files.push_back(directory.read("settings/" + entry.path().filename().string()));
        return files;
    }

    /// Exactly one box has come since the last call, and it says `part`.
    void expectOneNotice(const std::string& part) {
        ASSERT_EQ(notices.size(), 1U);
        EXPECT_NE(notices[0].find(part), std::string::npos) << notices[0];
        notices.clear();
    }

    int sleeps = 0;
    TestDirectory directory;
    std::vector<std::string> notices;
    const std::string file = directory.path("settings/settings.db");
};

TEST_F(SettingsFaults, AFileThatCannotBeUsedLosesNothingAndTheRunGoesOnInMemory) {
    fs::create_directories(directory.path("occupied/settings.db"));
    fs::create_directory(directory.path("piped"));
    ASSERT_EQ(mkfifo(directory.path("piped/settings.db").c_str(), 0600), 0);
    const auto elsewhere = [this](const std::string& place) {
        return [=, this] { return std::make_shared<ScopedDirectories>(directory.program(), place); };
    };
    const auto locked = [this] { return otherConnection(file, "BEGIN EXCLUSIVE"); };
    struct Row {
        std::string name;
        std::function<Fault()> begin;
        const char* notice;
        const char* readable = "Ann 12";
    };
    for (const Row& row : {
             Row{"no directory", elsewhere(""), "There is no directory", "none 0"},
             {"missing directory", elsewhere(directory.path("no/such")), "No such file or directory", "none 0"},
             {"a directory", elsewhere(directory.path("occupied")), "no regular file", "none 0"},
             {"a pipe", elsewhere(directory.path("piped")), "no regular file", "none 0"},
             {"locked at the start", locked, "locked"},
             {"locked later", locked, "locked"},
             {"read-only", readOnly, "readonly"},
             {"disk full", [] { return failingWrites(ENOSPC); }, "full"},
             {"device", [] { return failingWrites(EIO); }, "I/O error"},
         }) {
        SCOPED_TRACE(row.name);
        if (row.name == "locked later") contents();
        {
            const Fault fault = row.begin();
            EXPECT_EQ(contents(), row.readable);
            SaveSetting(application, "User", "large", std::string(200000, 'y'));
            expectOneNotice(row.notice);
            EXPECT_EQ(GetSetting(application, "User", "large").size(), 200000U);
            EXPECT_EQ(contents(), row.readable);
            closeSettings();
        }
        EXPECT_EQ(contents(), "Ann 12");
        EXPECT_EQ(GetSetting(application, "User", "large", "none"), "none");
        closeSettings();
    }
}

TEST_F(SettingsFaults, WaitsForAShortLock) {
    Fault lock = otherConnection(file, "BEGIN EXCLUSIVE");
    insteadOfSleep = [&] {
        if (++sleeps == 5) lock.reset();
    };
    setName("Eve");
    EXPECT_EQ(sleeps, 5);
    closeSettings();
    EXPECT_EQ(contents(), "Eve 12");
}

TEST_F(SettingsFaults, ADamagedFileIsSetAsideAndTheLastGoodCopyTakesItsPlace) {
    const std::string sound = read();
    const std::string good = read(".good");
    const auto overwritten = [&sound](std::size_t at, std::size_t count) {
        return std::string(sound).replace(at, count, std::string(count, '\xA5'));
    };
    const auto madeBy = [this](const char* statements) {
        fs::remove(directory.path("other.db"));
        otherConnection(directory.path("other.db"), statements);
        return directory.read("other.db");
    };
    std::size_t kept = 0;
    for (const auto& [name, damaged] : {
             std::pair{"empty", std::string()},
             {"cut at the last page", sound.substr(0, sound.size() - 4096)},
             {"schema page", overwritten(100, 300)},
             {"a page in the middle", overwritten(4096, 4096)},
             {"text", std::string(20000, 'k')},
             {"another program's table", madeBy("CREATE TABLE setting (name, value)")},
             {"keys not unique", madeBy("CREATE TABLE setting (id INTEGER PRIMARY KEY, application, section, "
                                        "folded_key, key, value)")},
         }) {
        for (const bool isGood : {true, false}) {
            SCOPED_TRACE(std::string(name) + (isGood ? "" : ", the copy too"));
            write(damaged);
            write(isGood ? good : damaged, ".good");
            if (isGood) {
                const Fault full = failure(&SystemCalls::fsync, ENOSPC);
                EXPECT_EQ(contents(), "Ann 12");
                expectOneNotice("replaced: No space left on device\r\n\r\nKelvor starts with the last good copy");
                setName("Zoe");
                EXPECT_EQ(contents(), "Zoe 12");
                closeSettings();
                EXPECT_EQ(read(), damaged);
            }
            EXPECT_EQ(contents(), isGood ? "Ann 12" : "none 0");
            expectOneNotice(isGood ? "Kelvor starts with the last good copy of the settings, made on 20"
                                   : "Kelvor starts with fresh settings.");
            setName("Eve");
            closeSettings();
            EXPECT_EQ(contents(), isGood ? "Eve 12" : "Eve 0");
            closeSettings();
            // All earlier ones are there still, and this one byte for byte.
            const auto files = setAside();
            EXPECT_EQ(files.size(), ++kept);
            EXPECT_EQ(std::count(files.begin(), files.end(), damaged), isGood ? 1 : 2);
        }
    }
}

TEST_F(SettingsFaults, AMissingFileAndALinkToNowhereGiveWayToTheLastGoodCopy) {
    const auto nowhere = directory.path("settings/nowhere");
    for (const bool isLink : {false, true}) {
        fs::remove(file);
        if (isLink) fs::create_symlink(nowhere, file);
        EXPECT_EQ(contents(), "Ann 12");
        expectOneNotice((isLink ? file + ".bad-" : "The settings file is missing.\r\n\r\nKelvor starts with the last"));
        setName("Ann");
        closeSettings();
        EXPECT_EQ(contents(), "Ann 12");
        closeSettings();
        EXPECT_FALSE(fs::exists(nowhere) || fs::is_symlink(file));
    }
    fs::remove(file);
    fs::remove(file + ".good");
    EXPECT_EQ(contents(), "none 0");
}

TEST_F(SettingsFaults, OnlyADamagedFilesJournalGoesWithIt) {
    write(read() + "junk");
    write("junk", "-journal");
    write("left by a start that was stopped", ".new");
    EXPECT_EQ(contents(), "Ann 12");
    setName("Eve");
    EXPECT_EQ(contents(), "Eve 12");
    closeSettings();
    write("");
    write("its journal", "-journal");
    EXPECT_EQ(contents(), "Eve 12");
    expectOneNotice("set aside");
    EXPECT_FALSE(fs::exists(file + "-journal"));
    EXPECT_EQ(setAside().size(), 2U);
}

TEST_F(SettingsFaults, TheCopyHasTheValuesOfTheLastClosedRun) {
    const auto copy = file + ".good";
    const auto copyGives = [this] {
        closeSettings();
        write("");
        std::string given = contents();
        closeSettings();
        expectOneNotice("the last good copy");
        return given;
    };
    setName("Zoe");
    EXPECT_EQ(copyGives(), "Zoe 12");
    DeleteSetting(application, "User", "Name");
    EXPECT_EQ(copyGives(), "none 12");
    fs::last_write_time(copy, fs::file_time_type::clock::now() + 1h);
    setName("Eve");
    EXPECT_EQ(copyGives(), "Eve 12") << "the clock has been set back since the copy was made";
    fs::remove(copy);
    contents();
    EXPECT_EQ(copyGives(), "Eve 12") << "the copy had been taken away";
}

TEST_F(SettingsFaults, KeepsTheOldCopyInSilenceWhenANewOneCannotBeMade) {
    const std::string good = read(".good");
    const std::pair<const char*, std::function<Fault()>> rows[] = {
        {"read-only directory", [] { return failure(&SystemCalls::open, EACCES); }},
        {"disk full", [] { return failingWrites(ENOSPC); }},
        {"device", [] { return failure(&SystemCalls::fsync, EIO); }},
        {"locked", [this] { return otherConnection(file, "BEGIN EXCLUSIVE"); }},
    };
    for (const auto& [name, begin] : rows) {
        SCOPED_TRACE(name);
        setName(name);
        const Fault fault = begin();
        sleeps = 0;
        closeSettings();
        EXPECT_EQ(sleeps, 0) << "the end of the program must not wait";
        EXPECT_EQ(read(".good"), good);
        EXPECT_FALSE(fs::exists(file + ".good.new"));
    }
    EXPECT_EQ(contents(), "locked 12");
    setName("Eve");
    otherConnection(file, "DROP TABLE setting");
    closeSettings();
    EXPECT_EQ(read(".good"), good) << "the file got damaged meanwhile";
}

/// Ends this process instead of the given one of the calls that write, of the database's and of our own.
void dieAt(int number) {
    static int left;
    left = number;
    static const auto count = [] {
        if (--left == 0) raise(SIGKILL);
    };
    for (const char* name : {"pwrite", "pwrite64"})
        setDatabaseCall(
            name, +[](int descriptor, const void* bytes, std::size_t size, off_t offset) {
                return count(), ::pwrite(descriptor, bytes, size, offset);
            });
    setDatabaseCall(
        "unlink", +[](const char* path) { return count(), ::unlink(path); });
    systemCalls().fsync = [](int descriptor) { return count(), ::fsync(descriptor); };
    systemCalls().rename = [](const char* from, const char* to) { return count(), ::rename(from, to); };
}

TEST_F(SettingsFaults, KeepsEveryClosedRunInTheFileAndAWholeCopyWhenKilled) {
    const auto valueOf = [](int number) {
        return std::to_string(number) + std::string(9000, static_cast<char>('A' + number % 26));
    };
    const auto save = [&](int number) {
        for (const auto* key : {"first", "second"}) SaveSetting(application, "User", key, valueOf(number));
        closeSettings();
    };
    const auto stored = [&](const char* key) {
        const std::string value = GetSetting(application, "User", key);
        const int number = std::atoi(value.c_str());
        return value == valueOf(number) ? number : -1;
    };
    save(0);
    int before = 0;
    bool killed = true;
    for (int at = 1; killed; ++at) {
        SCOPED_TRACE(at);
        killed = WIFSIGNALED(inChild([&] {
            dieAt(at);
            save(at);
            return 0;
        }));
        const std::string copy = read(".good");
        const int first = stored("first");
        ASSERT_TRUE(first == before || first == at) << first;
        ASSERT_TRUE(stored("second") == before || stored("second") == first);
        ASSERT_TRUE(killed || stored("second") == at);
        closeSettings();
        write("");
        write(copy, ".good");
        before = stored("first");
        ASSERT_EQ(before, stored("second"));
        ASSERT_TRUE(before == first || killed);
        expectOneNotice("the last good copy");
        closeSettings();
        ASSERT_LT(at, 1000) << "the run does not end";
        EXPECT_TRUE(killed || at > 20) << at;
    }
}

}  // namespace
}  // namespace kelvor
