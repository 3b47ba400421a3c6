// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journal.h"

#include <fcntl.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/event.h"
#include "files/regular_file.h"
#include "frame/notice.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

/// How long what was written may wait for the disk, and a failed attempt for the next one when nothing is typed.
constexpr std::chrono::seconds patience{1};
/// What is copied of a file between two events, in bytes, and in the change event that begins it.
constexpr off_t portionSize = off_t{1} << 20;
/// A pending change up to this length is tried again with each key, a longer one after a while.
constexpr int quicklyWritten = 1 << 16;

/// The journals that there may be something to do for.
const std::shared_ptr<std::vector<Journal*>>& activeJournals() {
    static const auto journals = std::make_shared<std::vector<Journal*>>();
    return journals;
}

constexpr std::string_view failureNotice = "Unsaved text is not being kept";

/// The notice goes with the last journal that fails.
void tellSuccess() {
    const auto& journals = *activeJournals();
    if (std::none_of(journals.begin(), journals.end(), [](Journal* one) { return one->isFailing(); }))
        clearNotice(failureNotice);
}

}  // namespace

Journal::Journal(EditControl& edit) : edit_(edit), active_(activeJournals()) {
}

Journal::~Journal() {
    std::erase(*active_, this);
}

void Journal::start(bool hasFile) {
    forget();
    isStarted_ = true;
    base_ = hasFile ? edit_.fileStamp() : std::nullopt;
    baseEncoding_ = edit_.encoding();
}

void Journal::drop() {
    forget();
    isStarted_ = false;
}

void Journal::forget() {
    if (file_) file_->remove();
    file_.reset();
    copy_.reset();
    mark_.reset();
    edit_.takeChange();
    pending_ = {};
    needsSnapshot_ = isMarkOver_ = isSpoiled_ = false;
    std::erase(*active_, this);
    if (std::exchange(isFailing_, false)) tellSuccess();
}

void Journal::adopt(OpenFile file, const std::string& path, const JournalContent& content) {
    forget();
    isStarted_ = true;
    base_.reset();
    header_ = content.header;
    subject_ = {header_.name, header_.isUntitled};
    mark_ = content.save;
    needsSnapshot_ = !content.isWhole;
    file_.emplace(std::move(file), path, content);
    activate();
    attempt([this] { keepUp(); });
}

void Journal::keepText(const Subject& subject) {
    if (!isStarted_) return;
    subject_ = subject;
    takeChange();
    attempt([this] { keepUp(); });
}

void Journal::noteChange(const Subject& subject) {
    if (!isStarted_) return;
    subject_ = subject;
    takeChange();
    if (pending_.isEmpty() && !isFailing_) return;
    const bool isQuick = !needsSnapshot_ && pending_.inserted <= quicklyWritten;
    if (isFailing_ && !isQuick && std::chrono::steady_clock::now() - tried_ < patience) return;
    attempt([this] { keepUp(); });
}

void Journal::beginSave(const Subject& subject, const std::string& path) {
    if (!isStarted_) return;
    subject_ = subject;
    takeChange();
    attempt([&] {
        keepUp();
        if (copy_) writeSnapshot();
        const SaveMark mark{path, edit_.encoding(), hashOf(edit_.textView())};
        file_->append(beingSavedRecord(file_->check(), mark));
        mark_ = mark;
        flush(std::chrono::steady_clock::now());
    });
}

void Journal::saveFailed() {
    if (!mark_) return;
    isMarkOver_ = true;
    attempt([this] { keepUp(); });
}

void Journal::takeChange() {
    const ChangedRange change = edit_.takeChange();
    if (!change.isEmpty()) pending_.add(change.start, change.removed, change.inserted);
}

void Journal::activate() {
    if (std::find(active_->begin(), active_->end(), this) == active_->end()) active_->push_back(this);
}

/// Runs `act`; whether it threw nothing. The first failure of a row is told, and the end of the row.
bool Journal::attempt(const std::function<void()>& act) {
    try {
        act();
        if (std::exchange(isFailing_, false)) tellSuccess();
        return true;
    } catch (const std::exception&) {
        tried_ = std::chrono::steady_clock::now();
        activate();
        if (!std::exchange(isFailing_, true)) showNotice(failureNotice, currentError().cause());
        return false;
    }
}

/// Sees to it that the journal gives the text as it is now.
void Journal::keepUp() {
    const bool isNew = !file_;
    if (isNew) begin();
    if (isMarkOver_) appendMarkOver();
    if (!needsSnapshot_ && !pending_.isEmpty()) appendChange();
    // A small file is whole at once.
    if (isNew && copy_ && base_->size <= portionSize) copyPortion();
    if (needsSnapshot_) writeSnapshot();
}

void Journal::begin() {
    auto base = subject_.isUntitled ? std::nullopt : openBase();
    header_ = {subject_.name,      subject_.isUntitled,        base ? baseEncoding_ : edit_.encoding(),
               std::time(nullptr), base ? base_ : knownFile(), !base};
    file_.emplace(JournalFile::create(header_));
    activate();
    needsSnapshot_ = !base;
    if (base) copy_.emplace(std::move(*base));
}

/// What the document's file was like when the user saw it last.
std::optional<FileStamp> Journal::knownFile() const {
    return subject_.isUntitled ? std::nullopt : edit_.fileStamp();
}

/// The file that the changes are counted from, unless it is another one by now or cannot be read.
std::optional<OpenFile> Journal::openBase() {
    if (!base_) return std::nullopt;
    // A look at the disk may have found the same bytes in a file of another time.
    const auto& looked = edit_.fileStamp();
    if (looked && looked->hash == base_->hash) base_ = looked;
    try {
        auto opened = openRegularFile(subject_.name, O_RDONLY);
        if (opened && base_->isOf(opened->status)) return std::move(opened->file);
    } catch (const Error&) {
        return std::nullopt;
    }
    return std::nullopt;
}

void Journal::appendChange() {
    const auto inserted = edit_.textPart(pending_.start, pending_.inserted);
    file_->append(changeRecord(file_->check(), pending_, inserted, edit_.textLength()));
    pending_ = {};
}

void Journal::appendMarkOver() {
    file_->append(saveOverRecord(file_->check()));
    mark_.reset();
    isMarkOver_ = false;
}

/// Copies the next part of the file. One that was written to meanwhile has to give way to a snapshot of the text.
void Journal::copyPortion() {
    const auto portion = readPortion();
    if (portion && !portion->empty()) {
        file_->append(basePortionRecord(file_->check(), *portion));
        copy_->hasher.add(*portion);
        copy_->place += static_cast<off_t>(portion->size());
        if (copy_->place < base_->size) return;
    }
    needsSnapshot_ = !portion || copy_->place != base_->size || copy_->hasher.hash() != base_->hash;
    if (!needsSnapshot_) file_->append(baseCompleteRecord(file_->check()));
    copy_.reset();
}

/// Nothing when the file is not as it was any more.
std::optional<std::string> Journal::readPortion() const {
    const int descriptor = copy_->file.descriptor();
    std::string bytes(static_cast<std::size_t>(std::min(portionSize, base_->size - copy_->place)), '\0');
    struct stat status {};
    const auto count =
        uninterrupted([&] { return systemCalls().pread(descriptor, bytes.data(), bytes.size(), copy_->place); });
    if (count < 0 || systemCalls().fstat(descriptor, &status) != 0 || !base_->isOf(status)) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

void Journal::writeSnapshot() {
    file_->append(snapshotRecord(file_->check(), edit_.textView()));
    needsSnapshot_ = false;
    pending_ = {};
    copy_.reset();
}

/// Waits for the disk; for one that has failed with a journal made anew, also for one that has become long.
void Journal::flush(Moment now) {
    constexpr std::size_t free = std::size_t{64} << 20;
    flushed_ = now;
    const bool isLong = file_->length() > 3 * static_cast<std::size_t>(edit_.textLength()) + free;
    if (isSpoiled_ || isLong) return rewrite();
    isSpoiled_ = true;
    file_->flush();
    isSpoiled_ = false;
}

/// Puts a journal of the text alone in the place of this one.
void Journal::rewrite() {
    JournalHeader header = header_;
    header.stamp = knownFile();
    header.isOfSnapshot = true;
    JournalFile fresh = JournalFile::create(header, journalPartSuffix);
    try {
        if (mark_) fresh.append(beingSavedRecord(fresh.check(), *mark_));
        fresh.append(snapshotRecord(fresh.check(), edit_.textView()));
        fresh.flush();
        fresh.replace(*file_);
    } catch (const std::exception&) {
        fresh.remove();
        throw;
    }
    file_.emplace(std::move(fresh));
    isSpoiled_ = needsSnapshot_ = false;
    pending_ = {};
    copy_.reset();
}

bool Journal::work(Moment now) {
    if (isFailing_ && now - tried_ < patience) return false;
    const bool isFlushDue = file_ && file_->isUnflushed() && now - flushed_ >= patience;
    if (!isFailing_ && !copy_ && !isFlushDue) return false;
    takeChange();
    return attempt([&] {
        keepUp();
        if (copy_) copyPortion();
        if (needsSnapshot_) writeSnapshot();
        if (isFlushDue) flush(now);
    });
}

bool workOnJournals(Journal::Moment now) {
    const auto& journals = *activeJournals();
    return std::any_of(journals.begin(), journals.end(), [now](Journal* journal) { return journal->work(now); });
}

}  // namespace kelvor
