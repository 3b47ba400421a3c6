#pragma once

#include <string>

namespace kelvor {

enum class DesktopTool { textEditor, calculator, fileManager, systemInformation };

/// The program that serves as `tool` on this desktop: the first one known that is in PATH. Where none is, the first
/// one known; starting it then tells the user what is missing.
std::string programFor(DesktopTool tool);

/// Whether `path` is a regular file that may be run.
bool isExecutableFile(const std::string& path);

}  // namespace kelvor
