#pragma once

#include <string>

#include "base/step.h"

namespace kelvor {

class LineRewrite;

/// Rewrites a file on the disk, also one in which nothing is found; it keeps its encoding. Throws Error when it
/// failed, also when the file's encoding lacks a character of the new text; the file then stays as it was.
/// @param temporary  as replaceFile takes it
void rewriteFile(const std::string& path, const LineRewrite& rewrite, const std::string& temporary, const Step& step);

}  // namespace kelvor
