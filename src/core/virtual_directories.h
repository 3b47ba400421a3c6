// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/outcome.h"
#include "text/keyed_collection.h"

namespace kelvor {

/// One mapping: a directory, and the address that stands for it.
class CVDir {
public:
    void setURL(const std::string& url) { url_ = url; }
    const std::string& URL() const { return url_; }
    void setFileSystemPath(const std::string& path) { fileSystemPath_ = path; }
    const std::string& FileSystemPath() const { return fileSystemPath_; }

private:
    std::string url_;
    std::string fileSystemPath_;
};

/// The user's mappings in the order in which they are tried.
class VirtualDirectories {
public:
    /// @param key  without regard to case; "" for none. One that is there already is an error 457.
    std::shared_ptr<CVDir> Add(const std::string& fileSystemPath, const std::string& url, const std::string& key);
    std::shared_ptr<CVDir> Item(std::size_t index) const { return mappings_.Item(index); }
    std::shared_ptr<CVDir> Item(const std::string& key) const { return mappings_.Item(key); }
    bool contains(const std::string& key) const { return mappings_.contains(key); }
    std::size_t Count() const { return mappings_.Count(); }
    void Remove(std::size_t index) { mappings_.Remove(index); }
    void Remove(const std::string& key) { mappings_.Remove(key); }
    std::vector<std::shared_ptr<CVDir>> items() const { return mappings_.items(); }

private:
    KeyedCollection<std::shared_ptr<CVDir>> mappings_;
};

/// Something with a path that is also reached by an address.
class MappedFile {
public:
    virtual ~MappedFile() = default;
    virtual const std::string& LongFileName() const = 0;
    virtual void setURLForDocument(const std::string& url) = 0;
};

/// Maps paths to addresses by plain replacement of text, and keeps the table in a file.
class CVirtualDirManager {
public:
    void setEnforceVDirs(bool enforce) { enforceVDirs_ = enforce; }
    bool EnforceVDirs() const { return enforceVDirs_; }
    kelvor::VirtualDirectories& VirtualDirectories() { return directories_; }
    void setVirtualDirectories(kelvor::VirtualDirectories directories);

    /// Adds the file's mappings to the table. A missing file is made, empty.
    /// @return failed at the first blank line, line without "|", path that is there already, or failing read;
    ///         the mappings before it stay
    Outcome ReadVDirs();
    /// `path` with every occurrence of the first mapped directory that it holds replaced, case ignored.
    std::string GetVDirForPath(const std::string& path) const;
    /// What GetVDirForPath gives, as a server is asked for it: the characters that came from the path are encoded, the
    /// mapping's address stands as the user wrote it. "" when no mapping changes the path.
    std::string encodedURLForPath(const std::string& path) const;
    /// Writes the table over its file, one line `FileSystemPath|URL` (LF) each; an empty table deletes the file.
    Outcome WriteVDirs() const;

    void setVDirFilePath(const std::string& path) { filePath_ = path; }
    const std::string& VDirFilePath() const { return filePath_; }

    /// Maps every open file anew.
    bool ReSyncVDirs();
    /// Where ReSyncVDirs finds the open files.
    void setMappedFiles(std::function<std::vector<MappedFile*>()> files) { files_ = std::move(files); }

    /// @param cause  as Message::cause
    void ReadVDirsFailed(const std::string& cause) const;
    void WriteVDirsFailed(const std::string& cause) const;

private:
    /// The first mapping that changes the path; nullptr when none does.
    std::shared_ptr<CVDir> mappingFor(const std::string& path) const;

    bool enforceVDirs_ = false;
    kelvor::VirtualDirectories directories_;
    std::string filePath_;
    std::function<std::vector<MappedFile*>()> files_;
};

/// The one manager. Before initVDirs() and after the frame's end an error 91.
CVirtualDirManager& vdirManager();

/// Makes the manager and reads its table; a failure is told and the program goes on. Called by the start.
void initVDirs();
/// Ends the manager, with the frame.
void endVDirs();

}  // namespace kelvor
