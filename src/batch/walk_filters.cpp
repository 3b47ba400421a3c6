// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/walk_filters.h"

#include "platform/platform.h"

namespace kelvor {

void fillWithFilters(ComboBox& combo, const std::vector<WalkFilter>& filters) {
    for (const WalkFilter& filter : filters) combo.addItem(filter.text);
    combo.setListIndex(0);
}

void walkForEach(DirWalker& walker, const std::vector<std::string>& patterns, const std::string& directory,
                 bool withSubdirectories) {
    for (const std::string& pattern : patterns) walker.Walk(directory, pattern, withSubdirectories ? 0 : 1);
}

void tellNoFiles(const std::string& directory, const std::string& filter) {
    beepAndShow({.text = "There are no files matching the selected " + filter + " in " + directory,
                 .title = "No files to search",
                 .icon = MessageIcon::exclamation});
}

}  // namespace kelvor
