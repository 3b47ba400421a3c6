// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/edit_control.h"

namespace kelvor {

enum class LinkCase { lower = 1, upper = 2 };

/// Brings the quoted values of an attribute to one case, as one undo step. Lets waiting events run; when one of them
/// changes the length of the text, the rest of the values stays as it is.
/// @param what  see parseLinkReferences
/// @return false when a reference was refused or left
bool changeLinkCase(EditControl& box, const std::string& what, LinkCase caseMode);

}  // namespace kelvor
