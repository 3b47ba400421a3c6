// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/temporary_directory.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/error.h"
#include "files/file_error.h"
#include "files/files.h"
#include "files/path_look.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/system_calls.h"

namespace kelvor {

namespace {

/// The X become letters and digits.
constexpr std::string_view namePattern = "kelvor-XXXXXX";

std::string baseDirectory() {
    const auto base = directoryVariable("TMPDIR");
    return lookAt(base).isFolder() ? base : "/tmp";
}

/// Opens the directory itself, never one to which a link leads.
OpenFile openDirectory(const std::string& path) {
    return OpenFile(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// The directory for temporary files, removed with the process that made it. Until then it is locked; the kernel takes
/// the lock away when the process ends, however it does.
class TemporaryDirectory {
public:
    /// The calls, by which it is closed, are made before it and so end after it.
    TemporaryDirectory() { systemCalls(); }
    ~TemporaryDirectory() {
        std::error_code failure;
        if (getpid() == owner_ && isOwn()) std::filesystem::remove_all(path_, failure);
    }

    const std::string& path() {
        if (!isOwn()) make();
        return path_;
    }

private:
    /// Whether the path still leads to what was made there.
    bool isOwn() const {
        struct stat made {};
        struct stat found {};
        constexpr mode_t rights = 0777;
        return opened_ && fstat(opened_->descriptor(), &made) == 0 && lstat(path_.c_str(), &found) == 0 &&
               found.st_dev == made.st_dev && found.st_ino == made.st_ino && found.st_uid == geteuid() &&
               (found.st_mode & rights) == S_IRWXU;
    }

    void make() {
        const auto base = baseDirectory();
        auto path = joinPath(base, namePattern);
        if (mkdtemp(path.data()) == nullptr) throw fileError(errno, "a folder for temporary files in " + base);
        auto opened = openDirectory(path);
        if (opened.descriptor() < 0) throw fileError(errno, path);
        // A disk that refuses this lock refuses the one of isAbandoned too.
        flock(opened.descriptor(), LOCK_EX);
        opened_.emplace(std::move(opened));
        path_ = path;
        owner_ = getpid();
    }

    std::optional<OpenFile> opened_;
    std::string path_;
    pid_t owner_ = 0;
};

bool hasOurName(std::string_view name) {
    return name.size() == namePattern.size() && name.starts_with(namePattern.substr(0, namePattern.find('X')));
}

/// Where directories cannot be locked, none is taken for abandoned.
bool isAbandoned(const std::string& path) {
    const auto directory = openDirectory(path);
    struct stat status {};
    return directory.descriptor() >= 0 && fstat(directory.descriptor(), &status) == 0 && status.st_uid == geteuid() &&
           flock(directory.descriptor(), LOCK_EX | LOCK_NB) == 0;
}

/// None where the user may make directories and not list them.
std::vector<std::string> readableDirectoriesIn(const std::string& base) {
    try {
        return directoriesIn(base);
    } catch (const Error&) {
        return {};
    }
}

}  // namespace

std::string temporaryDirectory() {
    static TemporaryDirectory directory;
    return directory.path();
}

std::string getTempDir() {
    return joinPath(temporaryDirectory(), "");
}

std::vector<std::string> abandonedTemporaryDirectories() {
    const auto base = baseDirectory();
    std::vector<std::string> found;
    for (const std::string& name : readableDirectoriesIn(base)) {
        auto path = joinPath(base, name);
        if (hasOurName(name) && isAbandoned(path)) found.push_back(std::move(path));
    }
    return found;
}

}  // namespace kelvor
