#pragma once

#include <string>

#include "platform/control.h"

namespace kelvor {

/// A text beside the fields.
class Label : public Control {
public:
    explicit Label(Form& form, std::string name, std::string caption = {})
        : Control(form, std::move(name)), caption_(std::move(caption)) {}

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::caption); }

    /// Red in the low byte; -1 is the desktop's own colour.
    int backColor() const { return backColor_; }
    void setBackColor(int color) { change(backColor_, color, Aspect::color); }

private:
    std::string caption_;
    int backColor_ = -1;
};

}  // namespace kelvor
