#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvor {

/// Paths are native ("/"), or foreign: spelled with a drive ("C:\web") or beginning with "\\". Only this
/// unit tells them apart.
bool isForeignPath(std::string_view path);
/// "/" for native paths, "\" for foreign ones.
char separatorOf(std::string_view path);

/// The part behind the last separator; the whole when there is none.
std::string fileNamePart(std::string_view path);
/// The part before the last separator, without it; "" when there is none, "/" for a file in the root.
std::string directoryPart(std::string_view path);
/// `directory` and `name` with one separator between them.
std::string joinPath(std::string_view directory, std::string_view name);

/// The directory that an environment variable names; "" when it is not set or does not tell from the root.
std::string directoryVariable(const char* name);

/// Where tags.txt, VDirs.txt, Templates, Scripts, HTML Help and errorlog.txt are: the executable's directory
/// when it holds Templates and can be written, otherwise $XDG_DATA_HOME/kelvor, filled from the installed data
/// at first use and never overwritten after. No separator at the end.
std::string programDirectory();
/// $XDG_CONFIG_HOME/kelvor, or ~/.config/kelvor; made when it is missing. "" when there is no home.
std::string settingsDirectory();

/// What stands in for the program's and the settings' directory.
struct Directories {
    std::string program;
    std::string settings;
};

/// Puts other directories in force until it ends, and then those before it; for tests.
class ScopedDirectories {
public:
    ScopedDirectories(std::string program, std::string settings);
    ~ScopedDirectories();
    ScopedDirectories(const ScopedDirectories&) = delete;
    ScopedDirectories& operator=(const ScopedDirectories&) = delete;

private:
    std::optional<Directories> previous_;
};

}  // namespace kelvor
