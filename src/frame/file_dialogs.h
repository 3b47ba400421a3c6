#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// The filter rows of every file dialog for documents: "name|patterns|...".
inline constexpr std::string_view fileFilter =
    "All Files (*.*)|*.*|Active Server Pages (*.asp)|*.asp;|CGI Source Files (*.cgi, *.pl, *.pm, *.c, *.h)|"
    "*.pl;*.cgi;*.c;*.pm;*.h|HTML Files (*.html, *.htm, *.shtml)|*.html;*.htm;*.shtml|JavaScript Files (*.js)|*.js|"
    "Text Files (*.txt)|*.txt|VBScript Files (*.vbs)|*.vbs|Web Related (*.asp, *.js, *.vbs, *.tpl, *.cdf)|"
    "*.asp;*.js;*.vbs;*.tpl;*.cdf";

/// The filter row that the user prefers, from 1. A stored value that is no number is an error 13.
int preferredFilterIndex();

/// Fills in the frame's file dialog for saving a document under a name. Flags are those of dialog_flag.
void prepareSaveDialog(int flags);

/// The directory last used in any file dialog, without a separator at its end.
inline std::string lastDir;

/// As before the start: no directory.
void resetLastDir();

/// The directory that the user picks; "" when cancelled.
std::string browseForFolder(const std::string& title);

/// Lets the user choose existing files for a tool, with the filters for documents; the next file dialog opens
/// where these are. None when the dialog was cancelled.
std::vector<std::string> pickFiles(const std::string& title);

}  // namespace kelvor
