// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/virtual_directories.h"

#include <string_view>

#include "base/error.h"
#include "base/outcome.h"
#include "base/single.h"
#include "core/journaled_save.h"
#include "files/files.h"
#include "files/paths.h"
#include "files/places.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/report_error.h"
#include "text/percent_encoding.h"
#include "text/text_encoding.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

Single<CVirtualDirManager>& instance() {
    static Single<CVirtualDirManager> manager;
    return manager;
}

/// Adds the mapping of a line. A part beyond the second "|" is of no use and stays unread.
void addLine(std::string_view line, const std::string& number, VirtualDirectories& directories) {
    const auto bar = line.find('|');
    if (bar == std::string_view::npos)
        throw Error(error_number::subscriptOutOfRange, "Subscript out of range", "Line " + number + " has no \"|\".");
    const std::string path(line.substr(0, bar));
    if (directories.contains(path))
        throw Error(error_number::duplicateKey, "This key is already associated with an element",
                    "Line " + number + " maps a path that is mapped already.");
    const std::string_view rest = line.substr(bar + 1);
    directories.Add(path, std::string(rest.substr(0, rest.find('|'))), path);
}

void addLines(std::string_view text, VirtualDirectories& directories) {
    for (int number = 1; !text.empty(); ++number) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        addLine(line, std::to_string(number), directories);
    }
}

using Spelling = std::function<std::string(std::string_view)>;

/// @param kept  how what stands between the matches is spelled
std::string replaceAll(std::string_view text, const CVDir& mapping, const Spelling& kept) {
    const TextSearch search(mapping.FileSystemPath());
    std::string result;
    std::size_t position = 0;
    while (const auto match = search.find(text, position)) {
        result.append(kept(text.substr(position, match->position - position))).append(mapping.URL());
        position = match->position + match->length;
    }
    return result.append(kept(text.substr(position)));
}

std::string asItIs(std::string_view text) {
    return std::string(text);
}

}  // namespace

std::shared_ptr<CVDir> VirtualDirectories::Add(const std::string& fileSystemPath, const std::string& url,
                                               const std::string& key) {
    auto mapping = std::make_shared<CVDir>();
    mapping->setFileSystemPath(fileSystemPath);
    mapping->setURL(url);
    mappings_.Add(mapping, key);
    return mapping;
}

void CVirtualDirManager::setVirtualDirectories(kelvor::VirtualDirectories directories) {
    directories_ = std::move(directories);
}

Outcome CVirtualDirManager::ReadVDirs() {
    if (filePath_.empty()) return Outcome::done();
    try {
        if (!listingFinds(filePath_)) saveFileInPlace(filePath_, "");
        addLines(decode(readFile(filePath_)).text, directories_);
    } catch (const Error& error) {
        return loggedFailure(error);
    }
    return Outcome::done();
}

std::string CVirtualDirManager::GetVDirForPath(const std::string& path) const {
    const auto mapping = mappingFor(path);
    return mapping ? replaceAll(path, *mapping, asItIs) : path;
}

std::string CVirtualDirManager::encodedURLForPath(const std::string& path) const {
    const auto mapping = mappingFor(path);
    return mapping ? replaceAll(path, *mapping, percentEncoded) : std::string();
}

std::shared_ptr<CVDir> CVirtualDirManager::mappingFor(const std::string& path) const {
    for (const auto& mapping : directories_.items())
        if (replaceAll(path, *mapping, asItIs) != path) return mapping;
    return nullptr;
}

Outcome CVirtualDirManager::WriteVDirs() const {
    if (filePath_.empty()) return Outcome::done();
    std::string text;
    for (const auto& mapping : directories_.items())
        text.append(mapping->FileSystemPath()).append("|").append(mapping->URL()).append("\n");
    try {
        const bool exists = listingFinds(filePath_);
        if (text.empty()) {
            if (exists) removeFile(filePath_);
            return Outcome::done();
        }
        const Encoding encoding = exists ? decode(readFile(filePath_)).encoding : Encoding::utf8;
        journaledSave(filePath_, encode(text, encoding).value_or(text));
    } catch (const Error& error) {
        return loggedFailure(error);
    }
    return Outcome::done();
}

bool CVirtualDirManager::ReSyncVDirs() {
    if (!files_) return true;
    for (MappedFile* file : files_()) file->setURLForDocument(GetVDirForPath(file->LongFileName()));
    return true;
}

void CVirtualDirManager::ReadVDirsFailed(const std::string& cause) const {
    beepAndShow({.text = "Unable to read VDirs.txt.  Please consult the online help.",
                 .cause = cause,
                 .title = "File read failed",
                 .icon = MessageIcon::critical});
}

void CVirtualDirManager::WriteVDirsFailed(const std::string& cause) const {
    beepAndShow({.text = "Unable to write to VDirs.txt.  Please consult the online help.",
                 .cause = cause,
                 .title = "File write failed",
                 .icon = MessageIcon::critical});
}

CVirtualDirManager& vdirManager() {
    return instance().get();
}

void initVDirs() {
    CVirtualDirManager& manager = instance().make();
    manager.setVDirFilePath(joinPath(programDirectory(), "VDirs.txt"));
    if (const Outcome read = manager.ReadVDirs(); !read) manager.ReadVDirsFailed(read.cause());
}

void endVDirs() {
    instance().end();
}

}  // namespace kelvor
