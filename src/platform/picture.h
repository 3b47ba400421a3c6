// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// A picture that was loaded, with its natural size in pixels. How its dots are held is the platform's to say.
struct Picture {
    Picture(int pixelsWide, int pixelsHigh) : width(pixelsWide), height(pixelsHigh) {}
    virtual ~Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    const int width;
    const int height;
};

}  // namespace kelvor
