// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/kept_files.h"

#include <sys/random.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <utility>

#include "KVFileSystem/dir_walker.h"
#include "base/error.h"
#include "base/event.h"
#include "batch/kept_size.h"
#include "files/file_error.h"
#include "files/paths.h"
#include "files/private_directory.h"
#include "files/regular_file.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (systemCalls().stat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

bool liesOn(const std::string& directory, dev_t disk) {
    const auto status = statusOf(directory);
    return status && status->st_dev == disk;
}

/// The deepest directory that has both, of which each is one.
std::string commonDirectory(const std::string& left, const std::string& right) {
    std::size_t end = 0;
    for (std::size_t i = 0; i <= std::min(left.size(), right.size()); ++i) {
        const bool leftEnds = i == left.size() || left[i] == '/';
        const bool rightEnds = i == right.size() || right[i] == '/';
        if (leftEnds && rightEnds) end = i;
        if (i == left.size() || i == right.size() || left[i] != right[i]) break;
    }
    return end == 0 ? "/" : left.substr(0, end);
}

/// A name that nobody has taken.
std::string newName() {
    std::uint64_t number = 0;
    if (getrandom(&number, sizeof number, 0) != sizeof number) throw fileError(errno, "random bytes");
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016" PRIx64, number);
    return std::string(keptDirectoryPrefix) + digits.data();
}

/// Sees to it that a disk has room for what is to be kept on it.
void checkRoom(const std::string& directory, std::uintmax_t bytes) {
    struct statvfs room {};
    if (systemCalls().statvfs(directory.c_str(), &room) != 0) return;
    const std::uintmax_t free = std::uintmax_t{room.f_bavail} * room.f_frsize;
    if (free >= bytes) return;
    throw pathError(error_number::diskFull,
                    "The old files need " + sizeText(bytes) + " and the disk has " + sizeText(free) + " left",
                    directory);
}

}  // namespace

KeptFiles::KeptFiles(BatchRun run, std::vector<std::string> planned)
    : run_(std::move(run)), planned_(std::move(planned)) {
    run_.planned = planned_.size();
}

KeptFiles::~KeptFiles() {
    guarded([this] { dropUnused(); });
}

void KeptFiles::stop() {
    keeps_ = false;
    dropUnused();
}

void KeptFiles::dropUnused() {
    if (number_ != 0 && !hasTouched_) batches_->remove(std::exchange(number_, 0));
}

Outcome KeptFiles::replace(const ReplaceableFile& file, std::string_view bytes, const std::string& temporary,
                           Flusher& flusher, const Step& step) {
    KeptFile change{file.path, {}, temporary, file.hash, hashOf(bytes)};
    if (keeps_ && change.before != change.after) {
        try {
            if (!record_) begin(step);
            change.keptAs = joinPath(placeFor(file), std::to_string(++count_));
            append(recordOf(change));
        } catch (const Error& error) {
            return Outcome::failed(error.cause());
        }
    }
    // What throws may have left a damaged file.
    const bool hadTouched = std::exchange(hasTouched_, true);
    Outcome done = replaceFile(file, bytes, temporary, flusher, step, change.keptAs);
    if (!done) hasTouched_ = hadTouched;
    if (done && record_ && std::exchange(earlierAreThere_, false)) batches_->supersedeAllBut(number_);
    return done;
}

KeptFiles::Disks KeptFiles::survey(const Step& step) const {
    Disks disks;
    for (const std::string& path : planned_) {
        step();
        const auto status = statusOf(path);
        if (!status) continue;
        Disk& disk = disks[status->st_dev];
        disk.bytes += static_cast<std::uintmax_t>(status->st_size);
        const std::string directory = directoryPart(path);
        disk.common = disk.common.empty() ? directory : commonDirectory(disk.common, directory);
    }
    return disks;
}

/// Makes the record and flushes it.
void KeptFiles::begin(const Step& step) {
    batches_.emplace();
    disks_ = survey(step);
    number_ = batches_->highest() + 1;
    privateDirectory("batch/" + std::to_string(number_));
    record_.emplace(createPrivateFile(batches_->recordPathOf(number_)));
    append(recordOf(run_));
    if (!flush(record_->descriptor())) throw fileError(errno, batches_->recordPathOf(number_));
    choosePlaces(step);
}

void KeptFiles::choosePlaces(const Step& step) {
    const std::string own = batches_->pathOf(number_);
    std::map<std::string, std::uintmax_t> needed;
    for (auto& [number, disk] : disks_) {
        step();
        disk.place = liesOn(own, number) ? own : placeBeside(disk.common, number);
        needed[disk.place.empty() ? own : disk.place] += disk.bytes;
    }
    for (const auto& [place, bytes] : needed) checkRoom(place, bytes);
}

/// A hidden directory of the user's own, in `directory`; "" when there can be none on that disk.
std::string KeptFiles::placeBeside(const std::string& directory, dev_t disk) {
    const auto [known, isNew] = besides_.try_emplace(directory, "");
    if (!isNew || !liesOn(directory, disk)) return known->second;
    constexpr mode_t ownerAll = 0700;
    const std::string path = joinPath(directory, newName());
    append(recordOfDirectory(path));
    if (mkdir(path.c_str(), ownerAll) == 0) known->second = path;
    return known->second;
}

std::string KeptFiles::placeFor(const ReplaceableFile& file) {
    const dev_t number = file.opened.status.st_dev;
    const std::string& place = disks_[number].place;
    if (!place.empty()) return place;
    const std::string beside = placeBeside(directoryPart(file.path), number);
    return beside.empty() ? batches_->pathOf(number_) : beside;
}

/// One write, over what an earlier one may have left half written.
void KeptFiles::append(const std::string& piece) {
    if (!writeWhole(record_->descriptor(), piece, recordSize_)) {
        throw fileError(errno, batches_->recordPathOf(number_));
    }
    recordSize_ += piece.size();
}

bool replacedOrAsked(KeptFiles& kept, const std::string& tool, const std::function<Outcome()>& replace) {
    const Outcome done = replace();
    if (done) return true;
    const Message question = {.text =
                                  "The old files cannot be kept, so this run could not be taken back from here "
                                  "on.\r\n\r\nGo on without keeping them?",
                              .cause = done.cause(),
                              .title = tool,
                              .icon = MessageIcon::exclamation,
                              .buttons = MessageButtons::yesNo,
                              .standard = Answer::no};
    if (beepAndShow(question) != Answer::yes) return false;
    kept.stop();
    return static_cast<bool>(replace());
}

}  // namespace kelvor
