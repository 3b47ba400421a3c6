// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/image_tag.h"

#include <string_view>

#include "html/attributes.h"

namespace kelvor {

namespace {

std::string extent(std::string_view name, const ImageExtent& extent) {
    return optionalAttribute(name, extent.isPercent && !extent.number.empty() ? extent.number + "%" : extent.number);
}

}  // namespace

std::string imageTag(const ImageFields& image) {
    std::string tag = image.isInput ? "<INPUT TYPE=\"image\"" : "<IMG";
    tag += attribute("SRC", image.source);
    tag += optionalAttribute("NAME", image.name);
    tag += optionalAttribute("ALT", image.description);
    tag += extent("WIDTH", image.width);
    tag += extent("HEIGHT", image.height);
    tag += numberAttribute("HSPACE", image.horizontalSpace);
    tag += numberAttribute("VSPACE", image.verticalSpace);
    tag += attribute("BORDER", image.border);
    if (image.isInput) tag += optionalAttribute("VALUE", image.value);
    tag += optionalAttribute("ALIGN", image.alignment);
    return tag + ">";
}

}  // namespace kelvor
