// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/edit_control.h"
#include "core/journal_file.h"
#include "core/journal_format.h"
#include "files/content_hash.h"
#include "files/file_stamp.h"
#include "files/system_calls.h"
#include "text/changed_range.h"
#include "text/text_encoding.h"

namespace kelvor {

/// Keeps what was typed into one document where a kill cannot reach it: each change is appended to a file of the
/// document's own, from its first change until the text is saved or given up. Whoever cannot lock the file (flock) has
/// to do with a copy of the program that lives. A journal that cannot be written stops nobody: the frame's status bar
/// tells it, and the next change tries again.
class Journal {
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// Whose text it is.
    struct Subject {
        std::string name;  ///< a path, or the name of one that has no file yet
        bool isUntitled = false;
    };

    /// Keeps nothing before start() or adopt().
    /// @param edit  must outlive the journal
    explicit Journal(EditControl& edit);
    /// What it holds is left on the disk.
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// From now on the text is as its file has it, or an untitled one's first: what was kept goes, and the next change
    /// begins anew.
    /// @param hasFile  whether the text is that of the file whose stamp the control has
    void start(bool hasFile);
    /// The text is nobody's any more: what was kept goes, and nothing more is kept.
    void drop();
    /// Goes on in a journal that a copy of the program has left.
    /// @param file     open for reading and writing, and locked
    /// @param content  what it holds; the control has its text by now
    void adopt(OpenFile file, const std::string& path, const JournalContent& content);

    /// Keeps the text though nothing has changed in it: its file holds another one by now.
    void keepText(const Subject& subject);
    /// After each change of the text: appends what has changed.
    void noteChange(const Subject& subject);

    /// Before the text is written over the file at `path`: sees to it that the text is kept whole, marked as being
    /// written, and on the disk. After it comes start() when the save has succeeded, saveFailed() when it has not.
    void beginSave(const Subject& subject, const std::string& path);
    /// The file is as it was.
    void saveFailed();

    /// Does a part of what waits until no event does: copies the file, flushes, tries again what has failed, makes the
    /// journal shorter. Whether it did something; there may be more then.
    bool work(Moment now);

    /// Where it is kept; "" while it is not.
    std::string path() const { return file_ ? file_->path() : ""; }
    /// Whether the last attempt to write has failed.
    bool isFailing() const { return isFailing_; }

private:
    /// The file that the changes are counted from, while it is being copied into the journal.
    struct BaseCopy {
        explicit BaseCopy(OpenFile opened) : file(std::move(opened)) {}

        OpenFile file;
        off_t place = 0;
        ContentHasher hasher;
    };

    bool attempt(const std::function<void()>& act);
    void takeChange();
    void keepUp();
    void begin();
    std::optional<FileStamp> knownFile() const;
    std::optional<OpenFile> openBase();
    void appendChange();
    void appendMarkOver();
    void copyPortion();
    std::optional<std::string> readPortion() const;
    void writeSnapshot();
    void flush(Moment now);
    void rewrite();
    void forget();
    void activate();

    EditControl& edit_;
    /// The journals with something to do. At the end of the process documents may end behind everything else.
    std::shared_ptr<std::vector<Journal*>> active_;
    Subject subject_;
    bool isStarted_ = false;
    std::optional<FileStamp> base_;  ///< of the file whose text the control had when the journal was started
    Encoding baseEncoding_ = Encoding::utf8;
    JournalHeader header_;
    std::optional<JournalFile> file_;
    std::optional<BaseCopy> copy_;
    bool needsSnapshot_ = false;
    ChangedRange pending_;          ///< what the journal has not got yet
    std::optional<SaveMark> mark_;  ///< of a save that is not known to be over
    bool isMarkOver_ = false;       ///< which the journal has not got yet
    bool isSpoiled_ = false;        ///< a flush has failed, and nobody knows what the disk has
    bool isFailing_ = false;
    Moment tried_;
    Moment flushed_;
};

/// Does a part of the work of one of the journals; whether there was any, and there may be more then.
bool workOnJournals(Journal::Moment now);

}  // namespace kelvor
