#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "platform/paths.h"
#include "support/settings.h"
#include "tests/fake_platform.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

/// Keeps the texts of critical "Settings" boxes; any other box fails the test.
struct Notices : Dialogs {
    Answer message(const Message& message) override {
        EXPECT_EQ(message.title, "Settings");
        EXPECT_EQ(message.icon, MessageIcon::critical);
        texts.push_back(message.text);
        return Answer::ok;
    }
    std::string input(const InputRequest&) override { return {}; }
    std::vector<std::string> openFiles(const FileRequest&) override { return {}; }
    std::optional<std::string> saveFile(const FileRequest&) override { return {}; }
    std::optional<int> color() override { return {}; }
    std::optional<std::string> folder(const std::string&, const std::string&) override { return {}; }

    std::vector<std::string> texts;
};

struct SettingsFaults : testing::Test {
    SettingsFaults()
        : withNotices{notices,         platform().screen, platform().shell, platform().clock, platform().clipboard,
                      platform().help, platform().windows} {
        setPlatform(&withNotices);
    }
    ~SettingsFaults() override { closeSettings(); }

    std::string file() const { return directory.path("settings/settings.db"); }

    /// A sound store of several pages, closed; its bytes.
    std::string fill() {
        for (int number = 0; number < 12; ++number)
            SaveSetting(application, "UserStrings", "label" + std::to_string(number), std::string(900, 'x'));
        SaveSetting(application, "User", "Name", "Ann");
        closeSettings();
        return directory.read("settings/settings.db");
    }

    std::vector<fs::path> setAside() const {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(directory.path("settings")))
            if (entry.path().string().starts_with(file() + ".bad-")) files.push_back(entry.path());
        return files;
    }

    static std::size_t countStrings() {
        return GetAllSettings(application, "UserStrings").value_or(std::vector<Setting>()).size();
    }

    /// Exactly one box has come since the last call, and it says `part`.
    void expectOneNotice(const std::string& part) {
        ASSERT_EQ(notices.texts.size(), 1U);
        EXPECT_NE(notices.texts[0].find(part), std::string::npos) << notices.texts[0];
        notices.texts.clear();
    }

    /// Writing goes on working, from memory alone, and nobody is told again.
    void expectWorksInMemory() {
        const auto start = std::chrono::steady_clock::now();
        for (const auto* value : {"one", "two"}) {
            SaveSetting(application, "User", "later", value);
            EXPECT_EQ(GetSetting(application, "user", "LATER"), value);
        }
        DeleteSetting(application, "User", "later");
        EXPECT_EQ(GetSetting(application, "User", "later", "none"), "none");
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
        EXPECT_EQ(notices.texts.size(), 0U);
    }

    TestDirectory directory;
    FakePlatform fake;
    Notices notices;
    Platform withNotices;
};

/// Another program's connection to a settings file.
class OtherConnection {
public:
    explicit OtherConnection(const std::string& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &connection_), SQLITE_OK);
    }
    ~OtherConnection() { sqlite3_close(connection_); }
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    void run(const char* statements) {
        EXPECT_EQ(sqlite3_exec(connection_, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection_);
    }

private:
    sqlite3* connection_ = nullptr;
};

std::string madeBySql(const TestDirectory& directory, const char* statements) {
    const std::string path = directory.path("other.db");
    fs::remove(path);
    OtherConnection(path).run(statements);
    return directory.read("other.db");
}

TEST_F(SettingsFaults, SetsADamagedFileAsideAndStartsAfresh) {
    const std::string sound = fill();
    ASSERT_GT(sound.size(), 3 * 4096U);
    const auto overwritten = [&](std::size_t at, std::size_t count) {
        std::string bytes = sound;
        return bytes.replace(at, count, std::string(count, '\xA5'));
    };
    const std::pair<const char*, std::string> rows[] = {
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
    std::size_t kept = 0;
    for (const auto& [name, bytes] : rows) {
        SCOPED_TRACE(name);
        closeSettings();
        directory.write("settings/settings.db", bytes);
        EXPECT_EQ(GetSetting(application, "User", "Name", "standard"), "standard");
        expectOneNotice("damaged and has been set aside");
        SaveSetting(application, "User", "Name", "Eve");
        closeSettings();
        EXPECT_EQ(GetSetting(application, "User", "Name"), "Eve");
        EXPECT_EQ(notices.texts.size(), 0U);
        // All earlier ones are there still, and this one byte for byte.
        const auto files = setAside();
        EXPECT_EQ(files.size(), ++kept);
        EXPECT_TRUE(std::any_of(files.begin(), files.end(), [&, &damaged = bytes](const fs::path& path) {
            return directory.read("settings/" + path.filename().string()) == damaged;
        }));
    }
}

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
        {directory.path("missing/settings"), "unable to open"},
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

/// No file may grow past a size while it lives; a write that would is an error of the write.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    sighandler_t handler_;
    rlimit before_{};
};

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
