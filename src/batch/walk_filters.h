// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "KVFileSystem/dir_walker.h"
#include "controls/combo_box.h"

namespace kelvor {

/// A kind of files offered by a tool that walks a directory: the row's text, and the patterns that the walker gets.
struct WalkFilter {
    std::string text;
    std::vector<std::string> patterns;
};

/// Adds the rows' texts and selects the first one.
void fillWithFilters(ComboBox& combo, const std::vector<WalkFilter>& filters);

/// Walks `directory` once for each pattern, in order; a file that matches two of them is found twice.
void walkForEach(DirWalker& walker, const std::vector<std::string>& patterns, const std::string& directory,
                 bool withSubdirectories);

/// @param directory  with its separator at the end
/// @param filter     what the tool calls that which no file matched
void tellNoFiles(const std::string& directory, const std::string& filter = "filter");

}  // namespace kelvor
