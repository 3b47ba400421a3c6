// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/handler.h"
#include "controls/list_rows.h"
#include "controls/mouse_press.h"

namespace kelvor {

/// A list in columns under headers. One row is the current one; several can be selected where that is allowed.
class ReportView : public Control {
public:
    /// What a row is marked as, by its colour. Its cells say it too: a colour alone is not seen by all.
    enum class Tint { none, added, removed, changed };

    struct Row {
        std::vector<std::string> cells;  ///< a cell that is missing is empty
        int icon = 0;                    ///< number of one of the pictures, from 1; 0 for none
        bool selected = false;
        Tint tint = Tint::none;
    };

    struct Handlers {
        Handler<> doubleClicked;
        Handler<> returnPressed;
        Handler<> chosen;
        Handler<int> columnClicked;
        Handler<MousePress> mouseDown;
    };

    /// @param columns  the headers' captions
    ReportView(Form& form, std::string name, std::vector<std::string> columns, const Handlers& handlers = {})
        : Control(form, std::move(name)), columns_(std::move(columns)) {
        handlers.doubleClicked.connectTo(doubleClicked, form);
        handlers.returnPressed.connectTo(returnPressed, form);
        handlers.chosen.connectTo(chosen, form);
        handlers.columnClicked.connectTo(columnClicked, form);
        handlers.mouseDown.connectTo(mouseDown, form);
    }

    const std::vector<std::string>& columns() const { return columns_; }
    /// To be told before the window is made.
    void setColumnCaption(int column, std::string caption) {
        columns_.at(static_cast<std::size_t>(column)) = std::move(caption);
    }

    const std::vector<Row>& rows() const { return rows_; }
    std::size_t count() const { return rows_.size(); }
    void addRow(std::vector<std::string> cells, int icon = 0) { addRows({{std::move(cells), icon}}); }
    void addRows(std::vector<Row> rows);
    /// A row that is not there is an error 9; so it is for the other calls that take one. A current row that
    /// goes is followed by its neighbour.
    void removeRow(int row);
    void clear();
    const std::string& cell(int row, int column) const;
    void setCell(int row, int column, const std::string& text);

    /// The pictures of the rows, by their names: the first one has number 1. To be told before the window is made.
    const std::vector<std::string>& icons() const { return icons_; }
    void setIcons(std::vector<std::string> names) { icons_ = std::move(names); }

    /// Whether the user can select more than one row.
    bool multiSelect() const { return multiSelect_; }
    void setMultiSelect(bool multiSelect) { multiSelect_ = multiSelect; }

    /// The current row from 0, or -1. A write selects it alone and scrolls it into view.
    int selectedRow() const { return selectedRow_; }
    void setSelectedRow(int row);
    bool isSelected(int row) const { return rows_[checked(row)].selected; }
    void setSelected(int row, bool selected);

    /// Orders the rows by a column's cells as texts, equal ones as they stood. The current row stays current.
    void sortBy(int column, bool ascending);

    /// In twips (15 of them a pixel); 0 for a column whose width the user and its contents decide.
    int columnWidth(int column) const;
    void setColumnWidth(int column, int twips);

    /// Has a column's texts stand at its right, as numbers do.
    void setRightAligned(int column) { rightAligned_.at(static_cast<std::size_t>(column)) = true; }
    bool isRightAligned(int column) const { return rightAligned_.at(static_cast<std::size_t>(column)); }

    /// Has a column take the room that the contents leave, in equal parts with the others that do. To be told before
    /// the window is made.
    void setTakesRoom(int column) { takesRoom_.at(static_cast<std::size_t>(column)) = true; }
    bool takesRoom(int column) const { return takesRoom_.at(static_cast<std::size_t>(column)); }

    /// The user's acts: a double click on a row, Return over selected rows, a click on a header, a choice of rows.
    void doubleClick(int row);
    void pressReturn() { returnPressed.raise(); }
    void clickColumn(int column) { columnClicked.raise(column); }
    /// @param selected  the selected rows, ascending
    void choose(int current, const std::vector<int>& selected);

    Event<> doubleClicked;
    Event<> returnPressed;
    /// The user has chosen rows, or setSelectedRow another one than before.
    Event<> chosen;
    Event<int> columnClicked;
    Event<MousePress> mouseDown;

    void followRows(RowFollower follower) { rowFollower_ = std::move(follower); }

private:
    std::size_t checked(int row) const;
    void tellRows(RowChange::Kind kind, int first, int last) const {
        if (rowFollower_) rowFollower_({kind, first, last});
    }

    std::vector<std::string> columns_;
    std::vector<int> columnWidths_ = std::vector<int>(columns_.size(), 0);
    std::vector<bool> rightAligned_ = std::vector<bool>(columns_.size(), false);
    std::vector<bool> takesRoom_ = std::vector<bool>(columns_.size(), false);
    std::vector<Row> rows_;
    std::vector<std::string> icons_;
    bool multiSelect_ = false;
    int selectedRow_ = -1;
    RowFollower rowFollower_;
};

}  // namespace kelvor
