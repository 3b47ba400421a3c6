#pragma once

#include <string>

namespace kelvor {

/// Ask for the address of a free anchor and for the name of a name anchor. What the user enters is given as it stands;
/// "" when nothing was entered or the box was cancelled.
std::string askAnchorUrl();
std::string askAnchorName();

}  // namespace kelvor
