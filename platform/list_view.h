#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"

namespace kelvor {

/// Rows of texts, of which one can be selected and edited in place.
class ListView : public Control {
public:
    using Control::Control;

    const std::vector<std::string>& rows() const { return rows_; }
    std::size_t count() const { return rows_.size(); }
    void addRow(const std::string& text);
    /// A row that is not there is an error 9; so it is for the other calls that take one.
    void removeRow(int row);
    void setText(int row, const std::string& text);

    /// The selected row from 0, or -1.
    int selectedRow() const { return selectedRow_; }
    void setSelectedRow(int row);

    /// The user's acts: a double click on a row, and an edit of its text in place, from its begin to its end.
    void doubleClick(int row);
    /// @return whether the new text was taken
    bool edit(int row, const std::string& text);

    Event<> doubleClicked;
    /// An edit of the selected row begins; a handler sets the flag to refuse it.
    Event<bool&> beforeLabelEdit;
    /// An edit ends with another text; a handler sets the flag to keep the old one.
    Event<const std::string&, bool&> afterLabelEdit;

    /// The view that follows the rows: what happened to which one, so that many rows cost as many inserts.
    enum class RowChange { inserted, removed, changed };
    using RowFollower = std::function<void(RowChange, int row)>;
    void followRows(RowFollower follower) { rowFollower_ = std::move(follower); }

private:
    std::size_t checked(int row) const;
    void tellRow(RowChange change, int row) const {
        if (rowFollower_) rowFollower_(change, row);
    }

    std::vector<std::string> rows_;
    int selectedRow_ = -1;
    RowFollower rowFollower_;
};

}  // namespace kelvor
