// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/step.h"

namespace kelvor {

/// The names of TableCell::align and TableCell::valign, from 1 on.
inline constexpr std::array<std::string_view, 3> alignNames = {"LEFT", "CENTER", "RIGHT"};
inline constexpr std::array<std::string_view, 3> valignNames = {"TOP", "MIDDLE", "BOTTOM"};

/// What a table's cell holds. A text that is stored loses what lies behind the place for it, and then the blanks at its
/// end.
class TableCell {
public:
    static constexpr int left = 1;
    static constexpr int middle = 2;

    int align = left;
    int valign = middle;

    const std::string& text() const { return text_; }
    /// The first 500 characters; CR LF counts as two.
    void setText(std::string_view text);

    /// "" for none.
    const std::string& bgColor() const { return bgColor_; }
    /// The first 7 characters.
    void setBgColor(std::string_view color);

private:
    std::string text_;
    std::string bgColor_;
};

/// The cells of a table, all as they are at first.
class TableCells {
public:
    TableCells() = default;
    explicit TableCells(int rows, int columns, const Step& step = noStep);

    int rows() const { return static_cast<int>(rows_.size()); }
    int columns() const { return columns_; }

    /// Both from 0; a cell that is not there is an error 9.
    TableCell& at(int row, int column);
    const std::vector<TableCell>& row(int row) const { return rows_.at(static_cast<std::size_t>(row)); }

private:
    std::vector<std::vector<TableCell>> rows_;
    int columns_ = 0;
};

enum class TableWidth { percentage, pixels, ignored };

/// What concerns a table as a whole.
struct TableAttributes {
    bool isCentered = false;
    int cellSpacing = 0;
    int cellPadding = 0;
    int borderSize = 0;
    std::string bgColor = {};  ///< "" for none
    int width = 0;
    TableWidth widthType = TableWidth::ignored;
};

/// The table, a line for each row's begin, cell and end, each value as it stands. Lines end in CR LF, but for the last.
std::string tableMarkup(const TableAttributes& table, const TableCells& cells, const Step& step = noStep);

}  // namespace kelvor
