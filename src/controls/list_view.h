// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/list_box.h"

namespace kelvor {

/// A list whose texts the user can edit in place.
class ListView : public ListBox {
public:
    struct Handlers {
        Handler<> doubleClicked;
        Handler<> beforeLabelEdit;
        Handler<const std::string&, bool&> afterLabelEdit;
    };

    explicit ListView(Form& form, std::string name, const Handlers& handlers = {})
        : ListBox(form, std::move(name), {.doubleClicked = handlers.doubleClicked}) {
        handlers.beforeLabelEdit.connectTo(beforeLabelEdit, form);
        handlers.afterLabelEdit.connectTo(afterLabelEdit, form);
    }

    /// The user's edit of a row's text in place, from its begin to its end.
    /// @return whether the new text was taken
    bool edit(int row, const std::string& text);

    /// Has an edit that is going on end with the text that is there now, as if the user had gone elsewhere.
    void endEdit() const { tell(Aspect::value); }

    /// The user has edited the selected row, which still has its old text.
    Event<> beforeLabelEdit;
    /// The edit gave another text; a handler sets the flag to keep the old one.
    Event<const std::string&, bool&> afterLabelEdit;
};

}  // namespace kelvor
