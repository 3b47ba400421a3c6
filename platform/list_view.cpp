#include "platform/list_view.h"

namespace kelvor {

bool ListView::edit(int row, const std::string& text) {
    setSelectedRow(row);
    bool cancel = false;
    beforeLabelEdit.raise(cancel);
    if (cancel || text == rows()[static_cast<std::size_t>(row)]) return false;
    afterLabelEdit.raise(text, cancel);
    if (!cancel) setText(row, text);
    return !cancel;
}

}  // namespace kelvor
