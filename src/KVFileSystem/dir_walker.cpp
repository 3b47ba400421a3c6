// SPDX-License-Identifier: GPL-3.0-or-later
#include "KVFileSystem/dir_walker.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace kelvor {

namespace {

constexpr std::size_t extensionLetters = 3;

char lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

bool isLowerLetter(char byte) {
    return byte >= 'a' && byte <= 'z';
}

/// A file pattern made ready for many names.
class NamePattern {
public:
    explicit NamePattern(std::string pattern) : pattern_(std::move(pattern)), everything_(pattern_ == "*.*") {
        std::transform(pattern_.begin(), pattern_.end(), pattern_.begin(), lower);
        const auto extension = std::string_view(pattern_).substr(pattern_.rfind('.') + 1);
        stemsExtensions_ = extension.size() == extensionLetters && extension.size() < pattern_.size() &&
                           std::all_of(extension.begin(), extension.end(), isLowerLetter);
    }

    bool matches(std::string_view name) const {
        if (everything_ || matchesWhole(name)) return true;
        const auto dot = stemsExtensions_ ? name.rfind('.') : std::string_view::npos;
        return dot != std::string_view::npos && matchesWhole(name.substr(0, dot + 1 + extensionLetters));
    }

private:
    bool matchesWhole(std::string_view name) const;

    std::string pattern_;
    bool everything_;
    bool stemsExtensions_;
};

bool NamePattern::matchesWhole(std::string_view name) const {
    // Only the last star is tried again: what the earlier ones took may stay as short as it is.
    std::size_t atName = 0;
    std::size_t atPattern = 0;
    std::size_t starName = 0;
    std::size_t behindStar = std::string_view::npos;
    while (atName < name.size()) {
        if (atPattern < pattern_.size() && pattern_[atPattern] == '*') {
            behindStar = ++atPattern;
            starName = atName;
        } else if (atPattern < pattern_.size() && pattern_[atPattern] == lower(name[atName])) {
            ++atName;
            ++atPattern;
        } else if (behindStar != std::string_view::npos) {
            atName = ++starName;
            atPattern = behindStar;
        } else {
            return false;
        }
    }
    return pattern_.find_first_not_of('*', atPattern) == std::string::npos;
}

/// An open directory, or none.
class Directory {
public:
    explicit Directory(int descriptor = -1) : descriptor_(descriptor) {}
    ~Directory() { close(); }
    Directory(Directory&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Directory& operator=(Directory&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    void close() {
        if (isOpen()) ::close(std::exchange(descriptor_, -1));
    }

    /// Opens a directory by a path from this one.
    Directory open(const char* path, int flags = 0) const {
        return Directory(::openat(descriptor_, path, directoryFlags | flags));
    }
    static Directory at(const std::string& path) { return Directory(::openat(AT_FDCWD, path.c_str(), directoryFlags)); }

private:
    static constexpr int directoryFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    int descriptor_;
};

/// What tells two directories apart, whatever their paths.
struct Identity {
    dev_t device = 0;
    ino_t inode = 0;
    bool operator==(const Identity&) const = default;
};

Identity identityOf(const Directory& directory) {
    struct stat status {};
    return fstat(directory.descriptor(), &status) == 0 ? Identity{status.st_dev, status.st_ino} : Identity{};
}

/// One directory on the way from the top to where the walk is.
struct Level {
    Directory directory;
    std::size_t pathLength;
    std::vector<std::string> subdirectories;  ///< still to be walked, the next one last
    Identity identity;                        ///< set when the directory was closed for a time
};

class TreeWalk {
public:
    TreeWalk(const DirWalker& walker, const std::string& filter, bool topOnly)
        : walker_(walker), pattern_(filter), topOnly_(topOnly) {}

    void run(const std::string& top);

private:
    void enter(Directory directory);
    void leave();
    void visit(const Directory& directory, const dirent64& entry, std::vector<std::string>& subdirectories);

    const DirWalker& walker_;
    NamePattern pattern_;
    bool topOnly_;
    bool cancelled_ = false;
    std::string path_;
    std::string name_;
    std::vector<Level> levels_;
    alignas(dirent64) std::array<char, 65536> entries_{};
};

void TreeWalk::run(const std::string& top) {
    Directory first = Directory::at(top);
    if (!first.isOpen()) return;
    path_ = top.ends_with('/') ? top : top + '/';
    enter(std::move(first));
    while (!levels_.empty() && !cancelled_) {
        Level& level = levels_.back();
        if (level.subdirectories.empty()) {
            leave();
            continue;
        }
        const std::string name = std::move(level.subdirectories.back());
        level.subdirectories.pop_back();
        Directory next = level.directory.open(name.c_str(), O_NOFOLLOW);
        if (!next.isOpen()) continue;
        path_.append(name).append("/");
        enter(std::move(next));
    }
}

/// Visits the files of the directory at `path_` and makes it the current level.
void TreeWalk::enter(Directory directory) {
    std::vector<std::string> subdirectories;
    for (;;) {
        const auto size = getdents64(directory.descriptor(), entries_.data(), entries_.size());
        if (size <= 0) break;
        for (std::size_t offset = 0; offset < static_cast<std::size_t>(size);) {
            const auto& entry = *reinterpret_cast<const dirent64*>(entries_.data() + offset);
            offset += entry.d_reclen;
            visit(directory, entry, subdirectories);
            if (cancelled_) return;
        }
    }
    std::reverse(subdirectories.begin(), subdirectories.end());
    levels_.push_back({std::move(directory), path_.size(), std::move(subdirectories), {}});
    constexpr std::size_t mostOpen = 16;
    if (levels_.size() <= mostOpen) return;
    Level& highest = levels_[levels_.size() - 1 - mostOpen];
    if (!highest.directory.isOpen()) return;
    highest.identity = identityOf(highest.directory);
    highest.directory.close();
}

/// Goes back to the level above, which may have been closed meanwhile.
void TreeWalk::leave() {
    const Level left = std::move(levels_.back());
    levels_.pop_back();
    if (levels_.empty()) return;
    Level& level = levels_.back();
    path_.resize(level.pathLength);
    if (level.directory.isOpen()) return;
    // The path may be longer than the kernel takes, and the directory left may have been moved away. When neither way
    // leads back, the rest of the level is passed over like any directory that is gone.
    Directory found = left.directory.open("..");
    if (identityOf(found) != level.identity) found = Directory::at(path_);
    if (identityOf(found) == level.identity) level.directory = std::move(found);
}

void TreeWalk::visit(const Directory& directory, const dirent64& entry, std::vector<std::string>& subdirectories) {
    name_ = entry.d_name;
    auto type = entry.d_type;
    struct stat status {};
    if (type == DT_UNKNOWN && fstatat(directory.descriptor(), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        type = static_cast<unsigned char>(IFTODT(status.st_mode));
    if (type == DT_DIR) {
        const bool isWalked = name_ != "." && name_ != ".." && !name_.starts_with(keptDirectoryPrefix);
        if (!topOnly_ && isWalked) subdirectories.push_back(name_);
        return;
    }
    if ((type != DT_REG && type != DT_LNK) || !pattern_.matches(name_)) return;
    const bool isFile =
        type == DT_REG || (fstatat(directory.descriptor(), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode));
    if (isFile) walker_.ItemFound(path_, name_, cancelled_);
}

}  // namespace

void DirWalker::Walk(const std::string& searchDir, const std::string& filter, int topOnly) {
    if (ItemFound) TreeWalk(*this, filter, topOnly != 0).run(searchDir);
}

}  // namespace kelvor
