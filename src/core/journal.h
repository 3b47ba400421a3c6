// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "controls/edit_control.h"
#include "core/journal_format.h"
#include "files/system_calls.h"

namespace kelvor {

/// The directory of the journals in the state directory.
constexpr std::string_view journalDirectoryName = "journals";
/// How their names end. Their order as texts is the order of time, as far as the clock went forward; what has another
/// ending is no journal, or none yet.
constexpr std::string_view journalSuffix = ".journal";

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

    /// After each change of the text: appends what has changed.
    void noteChange(const Subject& subject);

    /// Before the text is written over the file at `path`: sees to it that the text is kept whole, marked as being
    /// written, and on the disk. After it comes start() when the save has succeeded, saveFailed() when it has not.
    void beginSave(const Subject& subject, const std::string& path);
    /// The file is as it was.
    void saveFailed();

    /// Does a part of what waits until no event does: copies the file, flushes, tries again what has failed, makes the
    /// journal shorter. Whether there is more to do at once.
    bool work(Moment now);

    /// Where it is kept; "" while it is not.
    const std::string& path() const { return path_; }

private:
    EditControl& edit_;
    std::string path_;
};

/// Does a part of the work of all journals; whether there is more to do at once.
bool workOnJournals(Journal::Moment now);
/// Has workOnJournals called between events. endJournals takes that away again.
void startJournals();
void endJournals();

}  // namespace kelvor
