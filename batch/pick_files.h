#pragma once

#include <string>
#include <vector>

namespace kelvor {

/// Lets the user choose existing files for a tool, with the filters for documents; the next file dialog opens
/// where these are. None when the dialog was cancelled.
std::vector<std::string> pickFiles(const std::string& title);

}  // namespace kelvor
