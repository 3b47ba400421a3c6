#pragma once

#include <string>

#include "platform/error.h"

namespace kelvor {

/// The error number and the words for an errno value on `path`.
Error fileError(int code, const std::string& path);

/// The refusal of what is no regular file; `mode` is its st_mode.
Error notRegularError(unsigned mode, const std::string& path);

}  // namespace kelvor
