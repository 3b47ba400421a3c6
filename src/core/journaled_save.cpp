// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/journaled_save.h"

#include <ctime>
#include <exception>
#include <optional>

#include "core/journal_file.h"
#include "core/journal_format.h"
#include "files/content_hash.h"
#include "files/files.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// Keeps a text that is about to be written over a file, until it ends.
class ScopedJournal {
public:
    ScopedJournal(const std::string& path, std::string_view bytes) {
        try {
            begin(path, decode(std::string(bytes)));
        } catch (const std::exception&) {
            remove();
        }
    }
    ~ScopedJournal() { remove(); }
    ScopedJournal(const ScopedJournal&) = delete;
    ScopedJournal& operator=(const ScopedJournal&) = delete;

private:
    void begin(const std::string& path, const DecodedText& decoded) {
        file_.emplace(JournalFile::create({path, false, decoded.encoding, std::time(nullptr), std::nullopt}));
        file_->append(snapshotRecord(file_->check(), decoded.text));
        file_->append(beingSavedRecord(file_->check(), {path, decoded.encoding, hashOf(decoded.text)}));
        file_->flush();
    }
    void remove() {
        if (file_) file_->remove();
        file_.reset();
    }

    std::optional<JournalFile> file_;
};

}  // namespace

void journaledSave(const std::string& path, std::string_view bytes) {
    const ScopedJournal journal(path, bytes);
    saveFileInPlace(path, bytes);
}

}  // namespace kelvor
