// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

/// A width or a height as it was entered.
struct ImageExtent {
    std::string number;  ///< "" leaves the attribute out
    bool isPercent = false;
};

/// An image in a page. All texts are written as they stand.
struct ImageFields {
    std::string source;
    std::string name;         ///< "" leaves it out, as for the next one
    std::string description;  ///< shown where the image is not
    ImageExtent width;
    ImageExtent height;
    std::string horizontalSpace = "0";  ///< left out for exactly "0", as the next one is
    std::string verticalSpace = "0";
    std::string border = "0";  ///< always written
    std::string alignment;     ///< "" for none
    bool isInput = false;      ///< a form's button with a picture
    std::string value;         ///< of such a button; "" leaves it out
};

/// `<IMG ...>` or `<INPUT TYPE="image" ...>`, without a line end.
std::string imageTag(const ImageFields& image);

}  // namespace kelvor
