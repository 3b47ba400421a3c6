// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace kelvor {

/// The directory that an environment variable names; "" when it is not set or does not tell from the root.
std::string directoryVariable(const char* name);

/// Where tags.txt, VDirs.txt, Templates, Scripts and errorlog.txt are: the executable's directory
/// when it holds Templates and can be written, otherwise $XDG_DATA_HOME/kelvor, filled from the installed data
/// at first use and never overwritten after. No separator at the end.
std::string programDirectory();

/// What came with the program and stays as it came, HTML Help: the program directory when it holds that, otherwise the
/// directory of the installed data.
std::string helpDirectory();

/// $XDG_CONFIG_HOME/kelvor, or ~/.config/kelvor; made when it is missing. "" when there is no home.
std::string settingsDirectory();

/// $XDG_STATE_HOME/kelvor, or ~/.local/state/kelvor: what is neither setting nor data. Not made here; see
/// privateDirectory. "" when there is no home.
std::string stateDirectory();

/// What stands in for the program's, the settings' and the state's directory.
struct Directories {
    std::string program;
    std::string settings;
    std::string state;
};

/// Puts other directories in force until it ends, and then those before it; for tests.
class ScopedDirectories {
public:
    ScopedDirectories(std::string program, std::string settings, std::string state = "");
    ~ScopedDirectories();
    ScopedDirectories(const ScopedDirectories&) = delete;
    ScopedDirectories& operator=(const ScopedDirectories&) = delete;

private:
    std::optional<Directories> previous_;
};

}  // namespace kelvor
