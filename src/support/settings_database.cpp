// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/settings_database.h"

#include <fcntl.h>
#include <sqlite3.h>

#include <cerrno>
#include <filesystem>
#include <new>
#include <system_error>

#include "files/system_calls.h"
#include "text/letter_case.h"
#include "text/percent_encoding.h"

namespace kelvor {

namespace {

constexpr int lockWaitMilliseconds = 2000;

// Application and section are never shown, so they are kept folded only. The id gives the order of creation
// and outlives a vacuum.
constexpr const char* makeTable =
    "CREATE TABLE setting ("
    " id INTEGER PRIMARY KEY,"
    " application TEXT NOT NULL,"
    " section TEXT NOT NULL,"
    " folded_key TEXT NOT NULL,"
    " key TEXT NOT NULL,"
    " value TEXT NOT NULL,"
    " UNIQUE (application, section, folded_key))";
constexpr const char* readValue =
    "SELECT value FROM setting WHERE application = ?1 AND section = ?2 AND folded_key = ?3";
constexpr const char* writeValue =
    "INSERT INTO setting (application, section, folded_key, key, value) VALUES (?1, ?2, ?3, ?4, ?5)"
    " ON CONFLICT (application, section, folded_key) DO UPDATE SET value = excluded.value"
    " WHERE value <> excluded.value";
constexpr const char* removeValue = "DELETE FROM setting WHERE application = ?1 AND section = ?2 AND folded_key = ?3";
constexpr const char* listSection =
    "SELECT key, value FROM setting WHERE application = ?1 AND section = ?2 ORDER BY id";
constexpr const char* listAll = "SELECT application, section, key, value FROM setting ORDER BY id";

SettingsFileError::Kind kindOf(int code) {
    switch (code & 0xff) {
        case SQLITE_PERM:
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_READONLY:
        case SQLITE_IOERR:
        case SQLITE_FULL:
        case SQLITE_CANTOPEN:
        case SQLITE_PROTOCOL:
        case SQLITE_TOOBIG:
        case SQLITE_NOLFS:
        case SQLITE_AUTH:
            return SettingsFileError::Kind::unavailable;
        default:
            // All statements are our own: one that does not suit the file means that the file is not ours.
            return SettingsFileError::Kind::damaged;
    }
}

void require(bool success, int code, sqlite3* connection) {
    if (success) return;
    if ((code & 0xff) == SQLITE_NOMEM) throw std::bad_alloc();
    throw SettingsFileError(kindOf(code), connection ? sqlite3_errmsg(connection) : sqlite3_errstr(code));
}

/// A statement and its parameters, run once.
class Statement {
public:
    Statement(sqlite3* connection, const char* text) : connection_(connection) {
        const int code = sqlite3_prepare_v2(connection, text, -1, &statement_, nullptr);
        require(code == SQLITE_OK, code, connection);
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Gives the next parameter its text, which must live until the last step.
    Statement& bind(std::string_view text) {
        const char* bytes = text.data() ? text.data() : "";
        const int code = sqlite3_bind_text64(statement_, ++bound_, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
        require(code == SQLITE_OK, code, connection_);
        return *this;
    }

    /// Whether there is another row.
    bool step() {
        const int code = sqlite3_step(statement_);
        require(code == SQLITE_ROW || code == SQLITE_DONE, code, connection_);
        return code == SQLITE_ROW;
    }

    std::string text(int column) const {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
        const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
        return bytes ? std::string(bytes, length) : std::string();
    }

private:
    sqlite3* connection_;
    sqlite3_stmt* statement_ = nullptr;
    int bound_ = 0;
};

/// The names as they are compared.
struct FoldedName {
    explicit FoldedName(const SettingName& name)
        : application(foldCase(name.application)), section(foldCase(name.section)), key(foldCase(name.key)) {}

    std::string application;
    std::string section;
    std::string key;
};

/// Throws for anything but a regular file: opening a pipe would wait for its other end.
std::uintmax_t sizeOfRegularFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) return std::filesystem::file_size(path, error);
    throw SettingsFileError(SettingsFileError::Kind::unavailable,
                            error ? error.message() : "There is no regular file at its place.");
}

void requireCall(int result) {
    if (result < 0)
        throw SettingsFileError(SettingsFileError::Kind::unavailable, std::generic_category().message(errno));
}

/// Removes a file and what a stopped writer has left of its journal.
void removeWithJournal(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(path + "-journal", error);
    std::filesystem::remove(path, error);
}

}  // namespace

void SettingsDatabase::Close::operator()(sqlite3* connection) const {
    sqlite3_close(connection);
}

SettingsDatabase::SettingsDatabase(const std::string& name, int flags) {
    sqlite3* connection = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &connection, flags | SQLITE_OPEN_EXRESCODE, nullptr);
    connection_.reset(connection);
    require(code == SQLITE_OK, code, connection);
    sqlite3_busy_timeout(connection, lockWaitMilliseconds);
    execute("PRAGMA synchronous = FULL");
}

SettingsDatabase SettingsDatabase::inMemory() {
    SettingsDatabase database(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    database.execute(makeTable);
    return database;
}

SettingsDatabase SettingsDatabase::openFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found)
        throw SettingsFileError(SettingsFileError::Kind::damaged, "There is no file at its place.");
    // A file never is empty from its making on, so its contents were lost.
    if (sizeOfRegularFile(path) == 0) throw SettingsFileError(SettingsFileError::Kind::damaged, "The file is empty.");
    SettingsDatabase database(path, SQLITE_OPEN_READWRITE);
    database.check();
    return database;
}

SettingsDatabase SettingsDatabase::openPastLocks(const std::string& path) {
    sizeOfRegularFile(path);
    return {"file:" + percentEncoded(path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
}

/// Makes the file under another name first: whatever stops the program, there is no half-made file.
void SettingsDatabase::makeFile(const std::string& path) {
    const std::string unfinished = path + ".new";
    inMemory().writeTo(unfinished);
    std::error_code error;
    std::filesystem::rename(unfinished, path, error);
    if (error) throw SettingsFileError(SettingsFileError::Kind::unavailable, error.message());
}

void SettingsDatabase::execute(const char* statements) const {
    const int code = sqlite3_exec(connection_.get(), statements, nullptr, nullptr, nullptr);
    require(code == SQLITE_OK, code, connection_.get());
}

void SettingsDatabase::check() const {
    Statement quickCheck(connection_.get(), "PRAGMA quick_check(1)");
    const std::string finding = quickCheck.step() ? quickCheck.text(0) : std::string();
    if (finding != "ok") throw SettingsFileError(SettingsFileError::Kind::damaged, finding);
    for (const char* text : {readValue, writeValue, removeValue, listSection, listAll})
        Statement(connection_.get(), text);
}

std::optional<std::string> SettingsDatabase::value(const SettingName& name) const {
    const FoldedName folded(name);
    Statement statement(connection_.get(), readValue);
    statement.bind(folded.application).bind(folded.section).bind(folded.key);
    if (!statement.step()) return {};
    return statement.text(0);
}

void SettingsDatabase::write(const SettingName& name, std::string_view value) {
    const FoldedName folded(name);
    Statement statement(connection_.get(), writeValue);
    statement.bind(folded.application).bind(folded.section).bind(folded.key).bind(name.key).bind(value);
    statement.step();
}

bool SettingsDatabase::remove(const SettingName& name) {
    const FoldedName folded(name);
    Statement statement(connection_.get(), removeValue);
    statement.bind(folded.application).bind(folded.section).bind(folded.key);
    statement.step();
    return sqlite3_changes(connection_.get()) > 0;
}

std::vector<Setting> SettingsDatabase::list(std::string_view application, std::string_view section) const {
    const FoldedName folded({application, section, {}});
    Statement statement(connection_.get(), listSection);
    statement.bind(folded.application).bind(folded.section);
    std::vector<Setting> settings;
    while (statement.step()) settings.push_back({.key = statement.text(0), .value = statement.text(1)});
    return settings;
}

bool SettingsDatabase::hasWritten() const {
    return sqlite3_total_changes64(connection_.get()) > 0;
}

void SettingsDatabase::copyFrom(const SettingsDatabase& other) {
    Statement statement(other.connection_.get(), listAll);
    while (statement.step()) {
        const std::string application = statement.text(0);
        const std::string section = statement.text(1);
        const std::string key = statement.text(2);
        write({application, section, key}, statement.text(3));
    }
}

void SettingsDatabase::writeTo(const std::string& path) const {
    removeWithJournal(path);
    const OpenFile file(uninterrupted(
        [&] { return systemCalls().open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR); }));
    requireCall(file.descriptor());
    try {
        Statement(connection_.get(), "VACUUM INTO ?1").bind(path).step();
        requireCall(uninterrupted([&] { return systemCalls().fsync(file.descriptor()); }));
    } catch (const SettingsFileError&) {
        removeWithJournal(path);
        throw;
    }
}

void SettingsDatabase::stopWaiting() {
    sqlite3_busy_timeout(connection_.get(), 0);
}

std::string sqliteVersion() {
    return sqlite3_libversion();
}

}  // namespace kelvor
