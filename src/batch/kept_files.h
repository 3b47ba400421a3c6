// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "base/step.h"
#include "batch/batch_directory.h"
#include "batch/batch_record.h"
#include "files/file_replace.h"

namespace kelvor {

/// Keeps the old files of one run until the next one. What earlier runs have kept goes once this one has written a
/// file; a run that writes none leaves it as it is.
class KeptFiles {
public:
    /// @param planned  the files of the run
    KeptFiles(BatchRun run, std::vector<std::string> planned);
    ~KeptFiles();
    KeptFiles(const KeptFiles&) = delete;
    KeptFiles& operator=(const KeptFiles&) = delete;

    /// Gives the file other bytes, as replaceFile does, its old ones being kept. Each change is recorded before it is
    /// made, so that it can be taken back wherever the run is killed. Failed, with the reason, when the old file cannot
    /// be kept; it is as it was then.
    Outcome replace(const ReplaceableFile& file, std::string_view bytes, const std::string& temporary, Flusher& flusher,
                    const Step& step);
    /// From here on no old file is kept.
    void stop();

private:
    /// The planned files of one disk.
    struct Disk {
        std::uintmax_t bytes = 0;
        std::string common;  ///< the deepest directory that has all of them
        std::string place;   ///< the directory for those that are kept; "" when there is none beside them
    };
    using Disks = std::map<dev_t, Disk>;

    Disks survey(const Step& step) const;
    void begin(const Step& step);
    void choosePlaces(const Step& step);
    std::string placeBeside(const std::string& directory, dev_t disk);
    std::string placeFor(const ReplaceableFile& file);
    void append(const std::string& piece);
    void dropUnused();

    BatchRun run_;
    std::vector<std::string> planned_;
    bool keeps_ = true;
    bool hasTouched_ = false;  ///< whether a file may have been changed
    bool earlierAreThere_ = true;
    std::optional<BatchDirectory> batches_;
    std::uint64_t number_ = 0;  ///< of this run in batches_; 0 before it has begun
    std::optional<OpenFile> record_;
    std::size_t recordSize_ = 0;  ///< of what is written whole
    Disks disks_;
    std::map<std::string, std::string> besides_;  ///< directory -> the one made in it, or ""
    std::uint64_t count_ = 0;                     ///< of the files kept
};

/// Does `replace`, which replaces one file; when its old bytes cannot be kept the user is asked whether to go on
/// without keeping any, and it is done again.
/// @param tool  the title of the box
/// @return false: the user ends the run
bool replacedOrAsked(KeptFiles& kept, const std::string& tool, const std::function<Outcome()>& replace);

}  // namespace kelvor
