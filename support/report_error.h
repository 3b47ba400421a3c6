#pragma once

#include <string>

namespace kelvor {

/// The one route of an unexpected error: pointer normal, frame enabled, a beep, a critical box, and a line in
/// errorlog.txt once the box is closed. A log that cannot be written is passed over in silence.
/// @param number  in decimal
void reportError(const std::string& number, const std::string& description);

/// The log's path in the program directory.
std::string errorLogPath();

}  // namespace kelvor
