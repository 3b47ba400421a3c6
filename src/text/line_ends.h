#pragma once

#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <bit>
#include <climits>
#include <string>
#include <string_view>

namespace kelvor {

/// The line end that `text` has most often; CR LF when it has none.
std::string commonLineEnd(std::string_view text);

/// The text with `lineEnd` for each of its line ends: CR LF, a lone CR, a lone LF.
std::string withLineEnd(std::string_view text, std::string_view lineEnd);

/// The lines of a text, whatever ends them (CR LF, a lone CR, a lone LF), each ended by CR LF, the last one too.
std::string withLineEnds(std::string_view text);

}  // namespace kelvor
