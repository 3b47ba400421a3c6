// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"

namespace kelvor {

/// A control with one line of text in which a part can be selected. Positions and lengths are bytes of the
/// text, from 0; what lies outside the text is cut off.
class TextField : public Control {
public:
    using Control::Control;

    virtual const std::string& text() const = 0;

    /// The selection's start, or the caret. A write sets the selection's length to 0.
    int selStart() const { return selStart_; }
    void setSelStart(int position);
    int selLength() const { return selLength_; }
    /// Selects from selStart.
    void setSelLength(int length);

protected:
    /// Puts the caret there without telling the widget, which moves its own when the text changes.
    void placeCaret(int position);

private:
    void select(int start, int length);

    int selStart_ = 0;
    int selLength_ = 0;
};

}  // namespace kelvor
