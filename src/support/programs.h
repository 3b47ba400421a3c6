// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelvor {

enum class DesktopTool { textEditor, calculator, fileManager, systemInformation };

/// The program that serves as `tool` on this desktop: the first one known that is in PATH. Where none is, the first
/// one known; starting it then tells the user what is missing.
std::string programFor(DesktopTool tool);

/// Whether `path` is a regular file that may be run.
bool isExecutableFile(const std::string& path);

/// Opens a file or an address with what the desktop has for it.
void openInDefaultBrowser(const std::string& target);

/// Starts a program and does not wait for it. A program that is not there is told with its command line.
/// @param program   an executable file's name as it stands, or a command line, in which double quotes hold a word
///                  together
/// @param argument  one more word, whatever characters it has
void runProgram(const std::string& program, const std::optional<std::string>& argument = {});

/// The words of a command line: one when the whole text names an executable file, otherwise split at blanks, with
/// double quotes holding a word together.
std::vector<std::string> commandWords(const std::string& program);

/// Start the two companion programs from the program directory.
void runMirrel();

void runTavlok();

}  // namespace kelvor
