// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/places.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "files/path_look.h"
#include "files/paths.h"

namespace kelvor {

namespace {

namespace fs = std::filesystem;

constexpr const char* helpFolder = "HTML Help";

std::optional<Directories>& overriding() {
    static std::optional<Directories> directories;
    return directories;
}

/// `variable`'s directory, else `fallback` in the home, and in it the program's own; "" when there is no home.
std::string userDirectory(const char* variable, const char* fallback) {
    auto base = directoryVariable(variable);
    if (base.empty()) {
        const auto home = directoryVariable("HOME");
        if (home.empty()) return "";
        base = joinPath(home, fallback);
    }
    return joinPath(base, "kelvor");
}

std::string executableDirectory() {
    std::error_code failure;
    return fs::read_symlink("/proc/self/exe", failure).parent_path().string();
}

/// What a package brought along: beside the program wherever it was unpacked, else where it was to be installed.
std::string installedData() {
    const auto beside = (fs::path(executableDirectory()).parent_path() / "share" / "kelvor").string();
    return lookAt(beside).isFolder() ? beside : KELVOR_INSTALLED_DATA;
}

/// Puts into `directory` what of the installed data it lacks, but for the help, which is read where it is. All is
/// copied aside first and moved in whole, the templates last: they are the sign that nothing is missing.
void fillFrom(const fs::path& installed, const fs::path& directory) {
    auto pattern = (directory / "new-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) return;
    const fs::path aside = pattern;
    try {
        fs::copy(installed, aside, fs::copy_options::recursive);
        // Installed files may be read-only; the user's own are for changing.
        for (const auto& entry : fs::recursive_directory_iterator(aside)) {
            fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
        }
        std::vector<fs::path> names;
        for (const auto& entry : fs::directory_iterator(aside)) {
            const auto name = entry.path().filename();
            names.insert(name == "Templates" ? names.end() : names.begin(), name);
        }
        for (const auto& name : names) {
            if (name != helpFolder && !fs::exists(directory / name)) fs::rename(aside / name, directory / name);
        }
    } catch (const fs::filesystem_error&) {
        // A disk that is full must not keep the program from starting; the next start tries again.
    }
    std::error_code failure;
    fs::remove_all(aside, failure);
}

std::string findProgramDirectory() {
    auto beside = executableDirectory();
    if (lookAt(joinPath(beside, "Templates")).isFolder() && access(beside.c_str(), W_OK) == 0) return beside;
    auto installed = installedData();
    auto own = userDirectory("XDG_DATA_HOME", ".local/share");
    std::error_code failure;
    if (own.empty() || (!fs::create_directories(own, failure) && failure)) return installed;
    if (!lookAt(joinPath(own, "Templates")).isFolder() && lookAt(installed).isFolder()) fillFrom(installed, own);
    return own;
}

}  // namespace

std::string directoryVariable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

std::string programDirectory() {
    if (overriding()) return overriding()->program;
    static const auto directory = findProgramDirectory();
    return directory;
}

std::string helpDirectory() {
    const auto own = joinPath(programDirectory(), helpFolder);
    const auto installed = joinPath(installedData(), helpFolder);
    return overriding() || lookAt(own).isFolder() || !lookAt(installed).isFolder() ? own : installed;
}

std::string settingsDirectory() {
    if (overriding()) return overriding()->settings;
    auto directory = userDirectory("XDG_CONFIG_HOME", ".config");
    // Where it cannot be made, opening a file in it tells why.
    std::error_code failure;
    if (!directory.empty() && fs::create_directories(directory, failure)) {
        fs::permissions(directory, fs::perms::owner_all, failure);
    }
    return directory;
}

std::string stateDirectory() {
    return overriding() ? overriding()->state : userDirectory("XDG_STATE_HOME", ".local/state");
}

ScopedDirectories::ScopedDirectories(std::string program, std::string settings, std::string state)
    : previous_(std::exchange(overriding(), Directories{std::move(program), std::move(settings), std::move(state)})) {
}

ScopedDirectories::~ScopedDirectories() {
    overriding() = std::move(previous_);
}

}  // namespace kelvor
