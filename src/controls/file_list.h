// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/form.h"
#include "controls/key_press.h"

namespace kelvor {

/// The files of one directory that match a pattern, of which any number can be selected.
class FileList : public Control {
public:
    using Control::Control;

    const std::string& path() const { return path_; }
    /// Shows another directory's files, none selected. When it cannot be read, throws Error and keeps what it shows, as
    /// do the two that follow.
    void setPath(const std::string& path);
    const std::string& pattern() const { return pattern_; }
    /// Shows the files that match another pattern of "*" and "?", case ignored, none selected.
    void setPattern(const std::string& pattern);
    /// Reads the directory anew.
    void Refresh();

    /// The names in the order in which a person reads them, as the bytes that the directory has.
    const std::vector<std::string>& list() const { return list_; }
    bool selected(std::size_t index) const { return selected_.at(index); }
    void setSelected(std::size_t index, bool selected);

    /// The user's double click on a file.
    void doubleClick(std::size_t index);

    Event<> doubleClicked;
    Event<KeyPress> keyUp;
    Event<MousePress> mouseDown;

private:
    void show(const std::string& path, const std::string& pattern);

    std::string path_;
    std::string pattern_ = "*.*";
    std::vector<std::string> list_;
    std::vector<bool> selected_;
};

}  // namespace kelvor
