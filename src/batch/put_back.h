// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "base/step.h"
#include "batch/batch_record.h"
#include "files/flusher.h"

namespace kelvor {

/// What has become of a file since a run changed it.
enum class FileState {
    canBePutBack,  ///< it is as the run has left it, or half written
    isOld,         ///< it is as it was before
    differs,       ///< somebody has changed it since, or it cannot be read or written
};

struct FileLook {
    FileState state = FileState::differs;
    std::string why;  ///< for `differs`, a sentence
};

/// All that one run has done to one file, in its order.
struct ChangedFile {
    std::string path;
    std::vector<KeptFile> changes;
};

/// The files of a record, each once, in the order of the last change of each: to be put back from the last one on.
std::vector<ChangedFile> changedFiles(const BatchRecord& record);

FileLook lookAt(const ChangedFile& file, const Step& step);

/// Gives the file its old bytes when it is as the run has left it. It keeps the mode, owner and attributes that it has
/// now. Can be killed anywhere and done again.
/// @param temporary  as replaceFile takes it
/// @return its state now
FileLook putBack(const ChangedFile& file, const std::string& temporary, Flusher& flusher, const Step& step);

/// Whether a file that held `before` and was being written over in place by `after` can hold `now`, when the write
/// came to no end.
bool isHalfWritten(std::string_view now, std::string_view before, std::string_view after);

}  // namespace kelvor
