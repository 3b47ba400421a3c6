#pragma once

#include <span>
#include <string_view>

namespace kelvor {

/// Bits of MenuRow::flags.
namespace menu_flag {
constexpr int hidden = 1;
constexpr int disabled = 2;
constexpr int checked = 4;
/// The caption will be a name from outside, in which "&" marks nothing.
constexpr int name = 16;
/// The top of a popup menu: never in the bar.
constexpr int popup = 8;
}  // namespace menu_flag

/// One menu, row or separator as it stands before anything has run.
struct MenuRow {
    std::string_view name;
    std::string_view caption;   ///< "-" for a separator
    std::string_view shortcut;  ///< "" for none
    int flags;
    std::string_view parent;  ///< "" at the top
};

/// All menus, each parent before its rows, rows in their order. The rows of an array have names
/// that end in "_" and the index.
std::span<const MenuRow> menuTable();

}  // namespace kelvor
