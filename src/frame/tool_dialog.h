// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/button.h"
#include "controls/form.h"
#include "support/fields.h"

namespace kelvor {

/// The base of the tools' windows: their procedures have the names of Form's events, and what most of them do the same
/// is done here.
class ToolDialog : public Form {
public:
    /// Where the keyboard goes when the window closes.
    enum class AtEnd { asItComes, focusDocument, focusDelivered };

    ToolDialog(std::string name, std::string caption, AtEnd end = AtEnd::asItComes);

    /// Shows the window's own help page.
    void showHelp() const;

protected:
    /// Selects a field's whole text whenever the keyboard comes to it.
    template <typename... Fields>
    void selectThemselves(Fields&... fields) {
        (fields.gotFocus.connect([&fields] { selectAllOf(fields); }), ...);
    }

private:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    /// @param cancel  set to keep the window open
    virtual void Form_QueryUnload(bool& /*cancel*/) {}
    virtual void Form_Unload() {}
};

/// The one T there is: made when it is first asked for, dropped when it unloads.
template <typename T>
T& toolForm() {
    static FormInstance<T> instance;
    return instance.get();
}

}  // namespace kelvor
