// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/handler.h"
#include "controls/list_rows.h"

namespace kelvor {

/// Rows of texts, of which one can be selected.
class ListBox : public Control {
public:
    struct Handlers {
        Handler<> doubleClicked;
    };

    explicit ListBox(Form& form, std::string name, const Handlers& handlers = {}) : Control(form, std::move(name)) {
        handlers.doubleClicked.connectTo(doubleClicked, form);
    }

    const std::vector<std::string>& rows() const { return rows_; }
    std::size_t count() const { return rows_.size(); }
    void addRow(const std::string& text) { addRows({text}); }
    void addRows(std::vector<std::string> texts);
    /// A row that is not there is an error 9; so it is for the other calls that take one.
    void removeRow(int row);
    void setText(int row, const std::string& text);
    void clear();

    /// The selected row from 0, or -1.
    int selectedRow() const { return selectedRow_; }
    void setSelectedRow(int row);
    /// The selected row's text; none without a selection.
    std::optional<std::string> selectedText() const;

    /// The user's double click on a row.
    void doubleClick(int row);

    Event<> doubleClicked;

    void followRows(RowFollower follower) { rowFollower_ = std::move(follower); }

private:
    std::size_t checked(int row) const;
    void tellRows(RowChange::Kind kind, int first, int last) const {
        if (rowFollower_) rowFollower_({kind, first, last});
    }

    std::vector<std::string> rows_;
    int selectedRow_ = -1;
    RowFollower rowFollower_;
};

}  // namespace kelvor
