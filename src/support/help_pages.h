// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace kelvor {

/// A dialog's or menu row's page in the help file.
struct HelpPage {
    std::string_view where;    ///< name of the form or menu row
    std::string_view variant;  ///< tells apart the uses of one form; "" when it has one page
    std::string_view page;
};

inline constexpr std::string_view imageAsInput = "input";

/// Variants: of `frmImage` whether it makes a button of a form, of `frmFormTextBox` and `frmFormSelect` the caption,
/// of `preferences` the index of the shown page.
inline constexpr auto helpPages = std::to_array<HelpPage>({
    {"mnuHelp_tavlok", "", "20.html"},
    {"convert", "", "21.html"},
    {"frmEfind", "", "22.html"},
    {"frmImage", "", "23.html"},
    {"frmImage", imageAsInput, "51.html"},
    {"frmCaseChange", "", "24.html"},
    {"formatDoc", "", "25.html"},
    {"mnuHelp_mirrel", "", "26.html"},
    {"multi", "", "27.html"},
    {"textFormat", "", "28.html"},
    {"frmScripts", "", "29.html"},
    {"specialCharacterInsertion", "", "30.html"},
    {"frmTableWiz", "", "31.html"},
    {"tags", "", "32.html"},
    {"mnuHelp_sckeys", "", "33.html"},
    {"linkman", "", "35.html"},
    {"find", "", "36.html"},
    {"findReplace", "", "37.html"},
    {"templateHolder", "", "38.html"},
    {"frmScratchPad", "", "39.html"},
    {"namedLinks", "", "40.html"},
    {"nameAnchorFile", "", "41.html"},
    {"frmFormOpen", "", "45.html"},
    {"frmFormTextBox", "Textbox", "46.html"},
    {"frmFormTextBox", "Hidden Field", "52.html"},
    {"frmFormTextBox", "Password Field", "53.html"},
    {"frmFormTextBox", "Reset Button", "54.html"},
    {"frmFormTextBox", "Button", "55.html"},
    {"frmFormTextBox", "Submit", "56.html"},
    {"frmFormTextArea", "", "47.html"},
    {"frmFormSelect", "Checkbox group", "48.html"},
    {"frmFormSelect", "Radio button group", "49.html"},
    {"frmFormSelect", "Select group", "50.html"},
    {"frmDateTime", "", "62.html"},
    {"frmCompare", "", "72.html"},
    {"frmLook", "", "73.html"},
    {"frmSaveOver", "", "71.html"},
    {"frmTakeBack", "", "74.html"},
    {"frmRecovered", "", "70.html"},
    {"preferences", "0", "7.html"},
    {"preferences", "1", "8.html"},
    {"preferences", "2", "9.html"},
    {"preferences", "3", "10.html"},
    {"preferences", "4", "60.html"},
    {"preferences", "5", "11.html"},
    {"preferences", "6", "12.html"},
    {"preferences", "7", "13.html"},
    {"preferences", "8", "16.html"},
    {"preferences", "9", "17.html"},
    {"preferences", "10", "65.html"},
    {"preferences", "11", "18.html"},
    {"preferences", "12", "19.html"},
    {"preferences", "13", "67.html"},
    {"frmVersions", "", "75.html"},
    {"frmDryRun", "", "76.html"},
});

/// The page's name; "" when the table has none.
constexpr std::string_view helpPage(std::string_view where, std::string_view variant = {}) {
    for (const HelpPage& row : helpPages)
        if (row.where == where && row.variant == variant) return row.page;
    return {};
}

}  // namespace kelvor
