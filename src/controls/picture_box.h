// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "controls/control.h"
#include "controls/handler.h"
#include "platform/picture.h"

namespace kelvor {

/// A part of a window that has other controls in it, or that shows a picture and is as large as that. Sizes and places
/// are pixels; a box stands at a place inside the box around it.
class PictureBox : public Control {
public:
    struct Handlers {
        Handler<> resized;
    };

    PictureBox(Form& form, std::string name, const Handlers& handlers = {}) : Control(form, std::move(name)) {
        handlers.resized.connectTo(resized, form);
    }

    const std::shared_ptr<const Picture>& picture() const { return picture_; }
    /// Shows the picture from now on, and raises `resized` whatever size it has.
    void setPicture(std::shared_ptr<const Picture> picture);

    int width() const { return width_; }
    int height() const { return height_; }
    /// The layout's act on a box without a picture, or its user's; `resized` when the size differs.
    void resize(int width, int height);

    int left() const { return left_; }
    int top() const { return top_; }
    void setLeft(int left) { change(left_, left, Aspect::place); }
    void setTop(int top) { change(top_, top, Aspect::place); }

    Event<> resized;

private:
    std::shared_ptr<const Picture> picture_;
    int width_ = 0;
    int height_ = 0;
    int left_ = 0;
    int top_ = 0;
};

}  // namespace kelvor
