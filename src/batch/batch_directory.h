// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "batch/batch_record.h"
#include "files/system_calls.h"

namespace kelvor {

struct RecordedRun {
    std::uint64_t number = 0;
    BatchRecord record;
};

/// The directory of the runs whose old files are kept, each in a directory of its own, named by a number that grows.
/// Whoever holds it is the only one, in all copies of the program.
class BatchDirectory {
public:
    /// Throws Error when it cannot be made, 70 when another holds it.
    BatchDirectory();

    /// The highest number in use, 0 for none.
    std::uint64_t highest() const;
    /// The latest run that has a record and of whose files any is not as it was before; when there is none of that
    /// kind, the latest that has a record.
    std::optional<RecordedRun> latest() const;
    /// The directory of a run.
    std::string pathOf(std::uint64_t number) const;
    /// Where its record stands.
    std::string recordPathOf(std::uint64_t number) const;
    /// Throws away what is kept of the run. What does not go stays until the next time.
    void remove(std::uint64_t number) const;
    /// The run is none any more. Its files go bit by bit by removeSupersededFiles: on a busy disk the system takes as
    /// long to remove a file as to write one.
    void supersede(std::uint64_t number) const;
    void supersedeAllBut(std::uint64_t number) const;

private:
    std::string path_;
    OpenFile lock_;
};

/// Removes a few files of runs that a later one has superseded, between events; whether there may be more.
bool removeSupersededFiles();

}  // namespace kelvor
