// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/programs.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>

#include "base/error.h"
#include "files/paths.h"
#include "files/places.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

constexpr std::string_view textEditors[] = {"gnome-text-editor", "gedit",   "kate",  "kwrite",
                                            "mousepad",          "xed",     "pluma", "featherpad",
                                            "leafpad",           "l3afpad", "geany", "xedit"};

constexpr std::string_view calculators[] = {"gnome-calculator", "kcalc",        "mate-calc",   "galculator",
                                            "qalculate-gtk",    "qalculate-qt", "speedcrunch", "xcalc"};

constexpr std::string_view fileManagers[] = {"nautilus", "dolphin", "thunar", "nemo", "caja", "pcmanfm", "pcmanfm-qt"};

constexpr std::string_view systemInformation[] = {"kinfocenter",          "hardinfo2",           "hardinfo",
                                                  "gnome-system-monitor", "mate-system-monitor", "xfce4-taskmanager"};

std::span<const std::string_view> programsOf(DesktopTool tool) {
    switch (tool) {
        case DesktopTool::textEditor:
            return textEditors;
        case DesktopTool::calculator:
            return calculators;
        case DesktopTool::fileManager:
            return fileManagers;
        case DesktopTool::systemInformation:
            return systemInformation;
    }
    return {};
}

bool isInPath(std::string_view program) {
    const char* path = std::getenv("PATH");
    std::string_view rest = path ? path : "";
    while (!rest.empty()) {
        const std::string_view directory = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(directory.size() + 1, rest.size()));
        if (!directory.empty() && isExecutableFile(joinPath(directory, program))) return true;
    }
    return false;
}

/// The words of a command line; double quotes hold blanks together and are left out.
std::vector<std::string> wordsOf(const std::string& commandLine) {
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (const char character : commandLine) {
        if (character == '"') quoted = !quoted;
        const bool parts = character == ' ' && !quoted;
        if (!parts && !inWord) words.emplace_back();
        inWord = !parts;
        if (!parts && character != '"') words.back() += character;
    }
    return words;
}

void runCompanion(const std::string& name) {
    runProgram(joinPath(programDirectory(), name));
}

}  // namespace

std::string programFor(DesktopTool tool) {
    const auto programs = programsOf(tool);
    for (const std::string_view program : programs)
        if (isInPath(program)) return std::string(program);
    return std::string(programs.front());
}

bool isExecutableFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

void openInDefaultBrowser(const std::string& target) {
    try {
        if (platform().shell.open(target)) return;
        reportError(std::to_string(error_number::fileNotFound), "This desktop has no program that opens " + target);
    } catch (const Error& error) {
        reportError(error);
    }
}

std::vector<std::string> commandWords(const std::string& program) {
    return isExecutableFile(program) ? std::vector{program} : wordsOf(program);
}

void runProgram(const std::string& program, const std::optional<std::string>& argument) {
    auto words = commandWords(program);
    try {
        if (words.empty()) throw Error(error_number::fileNotFound, "No program is named");
        if (argument) words.push_back(*argument);
        platform().shell.start(words, {});
    } catch (const Error& error) {
        if (error.number() == error_number::fileNotFound) {
            showCritical("File not found", "The executable file required can not be found.\r\n\r\nFile: " + program +
                                               (argument ? " " + *argument : ""));
        } else {
            reportError(error);
        }
    }
}

void runMirrel() {
    runCompanion("mirrel");
}

void runTavlok() {
    runCompanion("tavlok");
}

}  // namespace kelvor
