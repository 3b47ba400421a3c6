#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/settings.h"
#include "tests/fake_platform.h"

namespace kelvor {

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

    static std::string allStrings() {
        std::string text;
        for (const Setting& setting : GetAllSettings(application, "UserStrings").value_or(std::vector<Setting>()))
            text += setting.key + "=" + setting.value + "\n";
        return text;
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

}  // namespace kelvor
