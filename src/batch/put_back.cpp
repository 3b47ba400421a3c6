// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/put_back.h"

#include <algorithm>
#include <exception>
#include <unordered_map>

#include "base/error.h"
#include "files/file_replace.h"
#include "files/file_stamp.h"
#include "files/files.h"
#include "files/path_look.h"
#include "files/system_calls.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

const FileLook changedSince = {FileState::differs, "Has been changed since."};

/// Where the new bytes are while the old ones are put back.
std::string newerPath(const ChangedFile& file) {
    return file.changes.front().keptAs + ".new";
}

/// Whether the run has given the file those bytes, at its end or on the way there.
bool isMadeByRun(const ChangedFile& file, const ContentHash& hash) {
    return std::any_of(file.changes.begin(), file.changes.end(),
                       [&](const KeptFile& change) { return change.after == hash; });
}

/// Whether a kill has stopped the run, or what puts the file back, in the middle of a write in place.
bool wasCaughtWriting(const ChangedFile& file, std::string_view now) {
    const auto isBetween = [&](const KeptFile& change, const std::string& newer) {
        if (!lookAt(newer).mayBeThere()) return false;
        const auto after = readFileIfPossible(newer);
        if (!after || !isMadeByRun(file, hashOf(*after))) return false;
        const auto before = readFileIfPossible(change.keptAs);
        return before && hashOf(*before) == change.before && isHalfWritten(now, *before, *after);
    };
    return isBetween(file.changes.back(), file.changes.back().temporary) ||
           isBetween(file.changes.front(), newerPath(file));
}

FileLook stateOf(const ChangedFile& file, const ContentHash& hash, const std::function<std::string_view()>& bytes) {
    if (hash == file.changes.front().before) return {FileState::isOld, ""};
    if (isMadeByRun(file, hash) || wasCaughtWriting(file, bytes())) return {FileState::canBePutBack, ""};
    return changedSince;
}

/// The bytes that the file had before the run.
std::string oldBytes(const ChangedFile& file) {
    const KeptFile& first = file.changes.front();
    auto bytes = readFileIfPossible(first.keptAs);
    if (!bytes) throw Error(error_number::fileNotFound, "The old file is not there any more.");
    if (hashOf(*bytes) != first.before) throw Error(error_number::fileNotFound, "The old file is damaged.");
    return std::move(*bytes);
}

/// Puts the old bytes in the place of those that the run has made, which are kept meanwhile.
void replaceByOld(const ChangedFile& file, const std::string& temporary, Flusher& flusher, const Step& step) {
    const std::string old = oldBytes(file);
    const auto target = readForReplacement(file.path, step);
    const bool isWhole = isMadeByRun(file, target.hash);
    // Beside a half written file its new bytes stand already.
    const std::string keepAs = isWhole ? newerPath(file) : "";
    const Outcome done = replaceFile(target, old, temporary, flusher, step, keepAs);
    if (!done) throw Error(error_number::diskFull, done.cause(), done.cause());
}

}  // namespace

bool isHalfWritten(std::string_view now, std::string_view before, std::string_view after) {
    const auto [shorter, longer] = std::minmax({before.size(), after.size()});
    if (now.size() < shorter || now.size() > longer) return false;
    for (std::size_t i = 0; i < now.size(); ++i) {
        const bool isBefore = i < before.size() && now[i] == before[i];
        const bool isAfter = i < after.size() && now[i] == after[i];
        if (!isBefore && !isAfter) return false;
    }
    return true;
}

std::vector<ChangedFile> changedFiles(const BatchRecord& record) {
    std::vector<ChangedFile> files;
    std::unordered_map<std::string_view, std::size_t> places;
    // From the last change on, so that the place of each is that of its last one.
    for (auto change = record.files.rbegin(); change != record.files.rend(); ++change) {
        const auto [place, isNew] = places.try_emplace(change->path, files.size());
        if (isNew) files.push_back({change->path, {}});
        files[place->second].changes.push_back(*change);
    }
    for (ChangedFile& file : files) std::reverse(file.changes.begin(), file.changes.end());
    std::reverse(files.begin(), files.end());
    return files;
}

FileLook lookAt(const ChangedFile& file, const Step& step) {
    step();
    try {
        std::string bytes;
        const auto read = [&]() -> std::string_view { return bytes = readFile(file.path); };
        return stateOf(file, readStamp(file.path).hash, read);
    } catch (const std::exception&) {
        return {FileState::differs, currentReason()};
    }
}

FileLook putBack(const ChangedFile& file, const std::string& temporary, Flusher& flusher, const Step& step) {
    try {
        const std::string now = readFile(file.path);
        const ContentHash hash = hashOf(now);
        FileLook look = stateOf(file, hash, [&]() -> std::string_view { return now; });
        if (look.state != FileState::canBePutBack) return look;
        // What a kill has left may be a second name of the file.
        if (isMadeByRun(file, hash)) systemCalls().unlink(newerPath(file).c_str());
        clearTemporary(temporary);
        replaceByOld(file, temporary, flusher, step);
        return {FileState::isOld, ""};
    } catch (const std::exception&) {
        return {FileState::differs, currentReason()};
    }
}

}  // namespace kelvor
