// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace kelvor {

/// One menu, row or separator as it stands before anything has run.
struct MenuRow {
    std::string_view parent = {};    ///< "" at the top
    std::string_view name = {};      ///< "" for most separators
    std::string_view caption = {};   ///< "-" for a separator
    std::string_view shortcut = {};  ///< "" for none
    bool isHidden = false;
    bool isDisabled = false;
    bool isChecked = false;
    /// The caption will be a name from outside, in which "&" marks nothing.
    bool isName = false;
    /// The top of a popup menu: never in the bar.
    bool isPopup = false;
};

/// All menus, each parent before its rows, rows in their order. The rows of an array have names
/// that end in "_" and the index.
std::span<const MenuRow> menuTable();

}  // namespace kelvor
