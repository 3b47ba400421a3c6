// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// One call of the help window.
class HtmlHelp {
public:
    const std::string& helpFileName() const { return helpFileName_; }
    void setHelpFileName(const std::string& path) { helpFileName_ = path; }

    /// Whether the help file could not be made ready: both operations then say so and show nothing.
    bool failed() const { return failed_; }
    void setFailed(bool failed) { failed_ = failed; }

    /// Shows the file's home page.
    void help_home() const;
    /// Shows a page by its name; the file name then names that page.
    void help_topic(const std::string& topic);

private:
    std::string helpFileName_;
    bool failed_ = false;
};

/// The help file's path. The file itself is not there: its name stands for the pages beside it.
std::string helpFilePath();

/// Shows the help file's home page.
void showHelpHome();
/// Shows the page of a form or menu row as help_pages.h has it; one that has none gets the home page.
void showHelpPage(std::string_view where, std::string_view variant = {});

}  // namespace kelvor
