// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

/// A text that is shown beside the documents, under a name of its own.
struct ShownText {
    std::string title;
    std::string text;  ///< UTF-8, with any line ends
};

}  // namespace kelvor
