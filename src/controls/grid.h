// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// Cells of text in rows and columns, one of which is the current one. Rows and columns are counted from 0.
class Grid : public Control {
public:
    struct Cell {
        std::string text;
        int backColor = 0;  ///< red in the low byte; 0 is the desktop's own
    };

    struct Handlers {
        Handler<> clicked;
        Handler<> moved;
    };

    explicit Grid(Form& form, std::string name, const Handlers& handlers = {}) : Control(form, std::move(name)) {
        handlers.clicked.connectTo(clicked, form);
        handlers.moved.connectTo(moved, form);
    }

    int rows() const { return static_cast<int>(cells_.size()); }
    int cols() const { return cols_; }
    /// Cells that are left keep what they hold; a current cell that goes is followed by the nearest one.
    void setRows(int rows);
    void setCols(int cols);

    int row() const { return row_; }
    int col() const { return col_; }
    /// A row that is not there is an error 9, and so is a column.
    void setRow(int row);
    void setCol(int col);

    /// Those of the current cell; without one an error 9.
    const std::string& text() const { return cell(row_, col_).text; }
    void setText(const std::string& text);
    int backColor() const { return cell(row_, col_).backColor; }
    void setBackColor(int color);

    /// A cell that is not there is an error 9.
    const Cell& cell(int row, int col) const;

    /// Empties all cells and gives them their own colour back.
    void clear();

    /// The user's acts: a click on a cell, or Enter in the current one; a move to another cell by the arrow keys. They
    /// make the cell the current one. Nothing happens while the grid is disabled or hidden.
    void click(int row, int col);
    void move(int row, int col);

    Event<> clicked;
    Event<> moved;

    /// Sets who is told of each cell that changes alone; Aspect::list is all of them.
    void followCells(std::function<void(int row, int col)> follower) { cellFollower_ = std::move(follower); }

private:
    bool goTo(int row, int col);
    void tellCell() const {
        if (cellFollower_) cellFollower_(row_, col_);
    }

    std::vector<std::vector<Cell>> cells_;
    int cols_ = 0;
    int row_ = 0;
    int col_ = 0;
    std::function<void(int row, int col)> cellFollower_;
};

}  // namespace kelvor
