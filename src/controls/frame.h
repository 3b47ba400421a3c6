// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"

namespace kelvor {

/// A line around controls that belong together. While it is disabled the user reaches none of them.
class Frame : public Control {
public:
    explicit Frame(Form& form, std::string name, std::string caption = {})
        : Control(form, std::move(name)), caption_(std::move(caption)) {}

    /// Stands as it is, with no access key in it.
    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::caption); }

private:
    std::string caption_;
};

}  // namespace kelvor
