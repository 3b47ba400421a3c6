// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_view.h"

namespace kelvor {

bool ListView::edit(int row, const std::string& text) {
    setSelectedRow(row);
    beforeLabelEdit.raise();
    if (text == rows()[static_cast<std::size_t>(row)]) return false;
    bool cancel = false;
    afterLabelEdit.raise(text, cancel);
    if (!cancel) setText(row, text);
    return !cancel;
}

}  // namespace kelvor
