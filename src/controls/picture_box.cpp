// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/picture_box.h"

namespace kelvor {

void PictureBox::setPicture(std::shared_ptr<const Picture> picture) {
    picture_ = std::move(picture);
    width_ = picture_->width;
    height_ = picture_->height;
    tell(Aspect::value);
    resized.raise();
}

void PictureBox::resize(int width, int height) {
    if (picture_ || (width == width_ && height == height_)) return;
    width_ = width;
    height_ = height;
    resized.raise();
}

}  // namespace kelvor
