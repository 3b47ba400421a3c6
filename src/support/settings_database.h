// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "support/setting.h"

struct sqlite3;

namespace kelvor {

/// Why a settings file cannot be used.
class SettingsFileError : public Error {
public:
    enum class Kind { damaged, unavailable };

    SettingsFileError(Kind kind, const std::string& description)
        : Error(error_number::deviceError, description), kind_(kind) {}

    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

/// Where one value is kept. All three names are matched without regard to case.
struct SettingName {
    std::string_view application;
    std::string_view section;
    std::string_view key;
};

/// Settings in one SQLite table. Every operation throws SettingsFileError when the file refuses it; the file
/// then holds what it held before.
class SettingsDatabase {
public:
    /// An empty store without a file.
    static SettingsDatabase inMemory();
    /// Makes an empty store's file where there is none.
    static void makeFile(const std::string& path);
    /// Opens a file that was made once and checks it whole. Waits up to two seconds for another program's lock.
    static SettingsDatabase openFile(const std::string& path);
    /// Opens a file for reading alone, past all locks; what another program is writing meanwhile may be missed.
    static SettingsDatabase openPastLocks(const std::string& path);

    std::optional<std::string> value(const SettingName& name) const;
    /// Stores the value for good. A key that is there keeps its place and its spelling; one that holds the
    /// value already costs no write.
    void write(const SettingName& name, std::string_view value);
    /// False when there was no such key.
    bool remove(const SettingName& name);
    /// The pairs of a section in the order of their creation.
    std::vector<Setting> list(std::string_view application, std::string_view section) const;

    /// Throws unless the file is sound and has the table that the operations need.
    void check() const;
    /// Whether this connection has changed a value.
    bool hasWritten() const;
    /// Adds all values of `other` in their order; those read before a failure stay.
    void copyFrom(const SettingsDatabase& other);
    /// Writes everything to a new file, on the disk when the call returns and readable by its owner alone. What
    /// is at `path` goes first; after a failure there is nothing.
    void writeTo(const std::string& path) const;
    /// From now on a lock is an error at once.
    void stopWaiting();

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };

    SettingsDatabase(const std::string& name, int flags);
    void execute(const char* statements) const;

    std::unique_ptr<sqlite3, Close> connection_;
};

/// Of the library that keeps the settings.
std::string sqliteVersion();

}  // namespace kelvor
