#include "support/desktop_tools.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string_view>

#include "platform/paths.h"

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

}  // namespace kelvor
