// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// The filter rows of every file dialog for documents: "name|patterns|...".
inline constexpr std::string_view documentFilter =
    "All Files (*.*)|*.*|Active Server Pages (*.asp)|*.asp;|CGI Source Files (*.cgi, *.pl, *.pm, *.c, *.h)|"
    "*.pl;*.cgi;*.c;*.pm;*.h|HTML Files (*.html, *.htm, *.shtml)|*.html;*.htm;*.shtml|JavaScript Files (*.js)|*.js|"
    "Text Files (*.txt)|*.txt|VBScript Files (*.vbs)|*.vbs|Web Related (*.asp, *.js, *.vbs, *.tpl, *.cdf)|"
    "*.asp;*.js;*.vbs;*.tpl;*.cdf";

/// The first ones of the dialog for pictures; behind them stand those for other kinds that can be shown.
inline constexpr std::string_view pictureFilter =
    "All Files (*.bmp, *.gif, *.jpg)|*.bmp;*.gif;*.jpg|BMP Files (*.bmp)|*.bmp|GIF Files (*.gif)|*.gif|"
    "JPG Files (*.jpg)|*.jpg";

/// The directory last used in any file dialog, without a separator at its end.
inline std::string lastDir;

/// As before the start: no directory.
void resetLastDir();

/// The directory that the user picks; "" when cancelled.
std::string browseForFolder(const std::string& title);

/// The existing files that the user picks, whose directory becomes `lastDir`; none when cancelled. The filter at first
/// is the one that the user prefers for documents; a stored value for it that is no number is an error 13.
std::vector<std::string> pickFiles(const std::string& title);
/// The same for one file.
std::optional<std::string> pickFile(const std::string& title);

/// The same for a picture, whose filters are other ones; the first of them is chosen.
std::optional<std::string> pickPicture();

/// The path that the user chooses to save under, the filter as in pickFiles(). When cancelled: error 32755.
/// @param offered  the name that stands in the dialog at first
/// @param flags    of dialog_flag
std::string pickSavePath(const std::string& offered, int flags);

}  // namespace kelvor
