// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace kelvor {

/// A directory in its place: the directories above it, itself, and those in it.
class DirectoryList : public Control {
public:
    struct Row {
        std::string name;
        std::string path;
        int depth = 0;
    };

    using Control::Control;

    /// The directory shown, without a separator at its end; "" before the first one.
    const std::string& path() const { return path_; }
    /// Shows a directory and raises `changed` when it is another. Throws Error 76 when it is not there, and the error
    /// of filesMatching when it cannot be read; what is shown stays then.
    void setPath(const std::string& path);
    /// From the root down to the directory shown, then its own directories as a person sorts them.
    const std::vector<Row>& rows() const { return rows_; }
    /// The row of the directory shown; -1 before the first one.
    int currentRow() const { return currentRow_; }

    /// The user's act: opens the directory of a row; the one shown is read anew. Raises `changed` in any case, and
    /// throws as setPath does.
    void open(int row);

    Event<> changed;

private:
    void show(const std::string& directory);

    std::string path_;
    std::vector<Row> rows_;
    int currentRow_ = -1;
};

}  // namespace kelvor
