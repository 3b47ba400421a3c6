// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/settings.h"

#include <sys/stat.h>

#include <charconv>
#include <ctime>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "base/error.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/places.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/settings_database.h"
#include "text/letter_case.h"
#include "text/typed_number.h"

namespace kelvor {

namespace {

std::string timeText(const char* format, std::time_t time) {
    char text[32];
    const std::tm* local = std::localtime(&time);
    return {text, local ? std::strftime(text, sizeof text, format, local) : 0};
}

/// When the file was last written; before all times when there is none.
std::filesystem::file_time_type lastWritten(const std::string& path) {
    std::error_code error;
    return std::filesystem::last_write_time(path, error);
}

/// Whether something has that path, were it a link that leads nowhere.
bool isThere(const std::string& path) {
    return lookAt(path, Links::kept).mayBeThere();
}

/// The user's settings file; when that cannot be used, a store in memory that takes its place until the end.
class SettingsStore {
public:
    SettingsStore() { open(); }

    /// Runs `operation` on the file, or, when the file refuses it, on the store in memory.
    template <typename Operation>
    auto run(Operation operation) {
        if (!inMemory_) {
            try {
                return operation(*database_);
            } catch (const SettingsFileError& error) {
                goOnInMemory(error.description());
            }
        }
        return operation(*database_);
    }

    /// Renews the last good copy when values were written since. For the end: it waits for no lock, and when the
    /// copy cannot be made, or the file is not sound, the one that is there stays.
    void renewCopy();

    /// What the user is to be told; given once.
    std::string takeNotice() { return std::exchange(notice_, {}); }

private:
    void open();
    bool isFirstRun() const;
    void openAnew(const std::string& damage);
    std::string setAside() const;
    std::unique_ptr<SettingsDatabase> lastGoodValues() const;
    std::string describeCopy() const;
    void copyStoredValues(SettingsDatabase& memory);
    void goOnInMemory(const std::string& reason, std::unique_ptr<SettingsDatabase> values = {});

    std::string path_;
    std::string copyPath_;
    std::unique_ptr<SettingsDatabase> database_;
    bool inMemory_ = false;
    std::string notice_;
};

void SettingsStore::open() {
    const std::string directory = settingsDirectory();
    if (directory.empty()) return goOnInMemory("There is no directory for the settings.");
    path_ = joinPath(directory, "settings.db");
    copyPath_ = path_ + ".good";
    try {
        if (isFirstRun()) SettingsDatabase::makeFile(path_);
        database_ = std::make_unique<SettingsDatabase>(SettingsDatabase::openFile(path_));
    } catch (const SettingsFileError& error) {
        if (error.kind() == SettingsFileError::Kind::damaged) {
            openAnew(error.description());
        } else {
            goOnInMemory(error.description());
        }
    }
}

/// Whether neither the file nor its copy was ever made.
bool SettingsStore::isFirstRun() const {
    return !isThere(path_) && !isThere(copyPath_);
}

/// Puts the damaged file out of the way; the last good values, or fresh settings, take its place. They are on
/// the disk before: a full disk leaves the damaged file and the copy as they are.
void SettingsStore::openAnew(const std::string& damage) {
    auto values = lastGoodValues();
    const std::string outcome =
        values ? "Kelvor starts with " + describeCopy() : "There is no good copy; Kelvor starts with fresh settings.";
    std::string reason;
    try {
        const std::string unfinished = path_ + ".new";
        const SettingsDatabase fresh = SettingsDatabase::inMemory();
        (values ? *values : fresh).writeTo(unfinished);
        const std::string aside = setAside();
        std::filesystem::rename(unfinished, path_);
        notice_ = aside.empty() ? "The settings file is missing."
                                : "The settings file is damaged and has been set aside as\r\n\r\n" + aside;
        notice_ += "\r\n\r\n" + outcome;
        database_ = std::make_unique<SettingsDatabase>(SettingsDatabase::openFile(path_));
        return;
    } catch (const std::filesystem::filesystem_error& error) {
        reason = error.code().message();
    } catch (const SettingsFileError& error) {
        reason = error.description();
    }
    reason = "The file is damaged (" + damage + ") and cannot be replaced: " + reason;
    if (values) reason += "\r\n\r\n" + outcome;
    goOnInMemory(reason, std::move(values));
}

/// The values of the last good copy; nothing when it is missing or damaged as well.
std::unique_ptr<SettingsDatabase> SettingsStore::lastGoodValues() const {
    try {
        const SettingsDatabase copy = SettingsDatabase::openPastLocks(copyPath_);
        copy.check();
        auto values = std::make_unique<SettingsDatabase>(SettingsDatabase::inMemory());
        values->copyFrom(copy);
        return values;
    } catch (const SettingsFileError&) {
        return {};
    }
}

std::string SettingsStore::describeCopy() const {
    struct stat status {};
    stat(copyPath_.c_str(), &status);
    return "the last good copy of the settings, made on " + timeText("%Y-%m-%d at %H:%M", status.st_mtime) +
           ". Later changes are lost.";
}

void SettingsStore::renewCopy() {
    if (inMemory_ || (!database_->hasWritten() && lastWritten(copyPath_) >= lastWritten(path_))) return;
    const std::string unfinished = copyPath_ + ".new";
    try {
        database_->stopWaiting();
        database_->check();
        database_->writeTo(unfinished);
    } catch (const SettingsFileError&) {
        return;
    }
    std::error_code error;
    std::filesystem::rename(unfinished, copyPath_, error);
    if (error) std::filesystem::remove(unfinished, error);
}

/// Gives the file, if there is one, another path, and where the file system has links, leaves the old one too until it
/// is replaced: a start that is stopped in between finds the damage again. Its journal goes along: left behind, it
/// would be played back into the fresh file.
std::string SettingsStore::setAside() const {
    const std::string wanted = path_ + ".bad-" + timeText("%Y%m%d-%H%M%S", std::time(nullptr));
    std::string aside = wanted;
    for (int attempt = 2; isThere(aside); ++attempt) aside = wanted + "-" + std::to_string(attempt);
    for (const char* ending : {"-journal", "-wal", "-shm"})
        if (isThere(path_ + ending)) std::filesystem::rename(path_ + ending, aside + ending);
    if (!isThere(path_)) return {};
    std::error_code noLinks;
    std::filesystem::create_hard_link(path_, aside, noLinks);
    if (noLinks) std::filesystem::rename(path_, aside);
    return aside;
}

/// Copies what can be read now: over the open connection, or, when that is locked out or there is none, past the
/// locks. What cannot be read counts as not set; the file itself stays as it is.
void SettingsStore::copyStoredValues(SettingsDatabase& memory) {
    try {
        if (database_) {
            database_->stopWaiting();
            return memory.copyFrom(*database_);
        }
    } catch (const SettingsFileError&) {
    }
    try {
        if (!path_.empty()) memory.copyFrom(SettingsDatabase::openPastLocks(path_));
    } catch (const SettingsFileError&) {
    }
}

/// Goes on with `values`, or, when there are none, with what can be read of the file.
void SettingsStore::goOnInMemory(const std::string& reason, std::unique_ptr<SettingsDatabase> values) {
    if (!values) {
        values = std::make_unique<SettingsDatabase>(SettingsDatabase::inMemory());
        copyStoredValues(*values);
    }
    database_ = std::move(values);
    inMemory_ = true;
    if (!notice_.empty()) notice_ += "\r\n\r\n";
    notice_ += "Settings cannot be stored; changes last until Kelvor ends.\r\n\r\n";
    if (!path_.empty()) notice_ += "File: " + path_ + "\r\n";
    notice_ += "Reason: " + reason;
}

std::unique_ptr<SettingsStore>& store() {
    static std::unique_ptr<SettingsStore> store;
    return store;
}

/// Runs `operation` and then tells what is to be told: the store is in order by then, so that events which
/// arrive while the box is open find it usable.
template <typename Operation>
auto withStore(Operation operation) {
    if (!store()) store() = std::make_unique<SettingsStore>();
    auto result = store()->run(operation);
    if (const std::string notice = store()->takeNotice(); !notice.empty())
        beepAndShow({.text = notice, .title = "Settings", .icon = MessageIcon::critical});
    return result;
}

}  // namespace

std::string GetSetting(std::string_view program, std::string_view section, std::string_view key,
                       std::string_view standard) {
    const SettingName name{program, section, key};
    const auto value = withStore([&](SettingsDatabase& database) { return database.value(name); });
    return value ? *value : std::string(standard);
}

void SaveSetting(std::string_view program, std::string_view section, std::string_view key, std::string_view value) {
    const SettingName name{program, section, key};
    withStore([&](SettingsDatabase& database) {
        database.write(name, value);
        return true;
    });
}

void DeleteSetting(std::string_view program, std::string_view section, std::string_view key) {
    const SettingName name{program, section, key};
    if (!withStore([&](SettingsDatabase& database) { return database.remove(name); }))
        throw Error(error_number::invalidProcedureCall, "There is no setting " + std::string(key));
}

std::optional<std::vector<Setting>> GetAllSettings(std::string_view program, std::string_view section) {
    auto settings = withStore([&](SettingsDatabase& database) { return database.list(program, section); });
    if (settings.empty()) return {};
    return settings;
}

int settingNumber(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) throw notANumberError(text);
    const std::string_view number(text.data() + first, text.find_last_not_of(' ') + 1 - first);
    int value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error != std::errc() || end != number.data() + number.size()) throw notANumberError(text);
    return value;
}

bool settingBoolean(const std::string& text) {
    if (equalIgnoringCase(text, "True")) return true;
    if (equalIgnoringCase(text, "False")) return false;
    return settingNumber(text) != 0;
}

void closeSettings() {
    if (store()) store()->renewCopy();
    store().reset();
}

}  // namespace kelvor
