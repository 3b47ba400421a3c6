// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/line_rewrite.h"
#include "files/content_hash.h"
#include "platform/dates.h"

namespace kelvor {

/// A run of a tool over files, as whoever takes it back is told of it.
struct BatchRun {
    std::string tool;
    DateTime when;
    /// What it changes into what.
    std::vector<FindItem> changes;
    std::uint64_t planned = 0;  ///< the number of its files
};

/// A file that is about to get other bytes. Paths are bytes as the disk holds them.
struct KeptFile {
    std::string path;
    std::string keptAs;     ///< where the old bytes are
    std::string temporary;  ///< where the new ones are while the file is written in place
    ContentHash before;
    ContentHash after;

    bool operator==(const KeptFile&) const = default;
};

/// What the record of a run says. It is written piece by piece, each before what it tells of is done.
struct BatchRecord {
    BatchRun run;
    /// The directories, beside the one of the record, that hold old files.
    std::vector<std::string> directories;
    /// In the order of the run; a file that it has changed twice is there twice.
    std::vector<KeptFile> files;
};

/// The pieces of a record as bytes: what it begins with, and what may follow in any number.
std::string recordOf(const BatchRun& run);
std::string recordOfDirectory(std::string_view path);
std::string recordOf(const KeptFile& file);

/// Reads a record up to the first piece that is not whole, or not as it was written. Nothing when it has no beginning.
std::optional<BatchRecord> readRecord(std::string_view bytes);

}  // namespace kelvor
