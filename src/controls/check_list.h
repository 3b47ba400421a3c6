// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/handler.h"
#include "controls/list_rows.h"

namespace kelvor {

/// Rows of a caption and a box to tick each.
class CheckList : public Control {
public:
    struct Row {
        std::string caption;
        bool ticked = false;
    };

    struct Handlers {
        Handler<int> ticked;
    };

    explicit CheckList(Form& form, std::string name, const Handlers& handlers = {}) : Control(form, std::move(name)) {
        handlers.ticked.connectTo(ticked, form);
    }

    const std::vector<Row>& rows() const { return rows_; }
    std::size_t count() const { return rows_.size(); }
    /// Its box is clear.
    void addRow(const std::string& caption);

    /// A row that is not there is an error 9, here and below.
    bool isTicked(int row) const { return rows_[checked(row)].ticked; }
    /// Raises `ticked` when the box differs.
    void setTicked(int row, bool on);

    /// The user's act, which turns a row's box; nothing happens while the list is disabled.
    void click(int row) {
        if (enabled()) setTicked(row, !isTicked(row));
    }

    /// The box of that row has been ticked or cleared.
    Event<int> ticked;

    void followRows(RowFollower follower) { rowFollower_ = std::move(follower); }

private:
    std::size_t checked(int row) const;
    void tellRow(RowChange::Kind kind, int row) const {
        if (rowFollower_) rowFollower_({kind, row, row});
    }

    std::vector<Row> rows_;
    RowFollower rowFollower_;
};

}  // namespace kelvor
