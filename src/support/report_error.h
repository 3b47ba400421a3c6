// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/error.h"
#include "base/outcome.h"

namespace kelvor {

/// The one route of an unexpected error: pointer normal, frame enabled, a beep, a critical box, and a line in
/// errorlog.txt once the box is closed. A log that cannot be written is passed over in silence.
/// @param number  in decimal
/// @param title   of the box
void reportError(const std::string& number, const std::string& description,
                 const std::string& title = "Application Error");

void reportError(const Error& error, const std::string& title = "Application Error");

/// Writes an error into the log alone: the cause of a failure of which the user is told in other words.
void logError(const Error& error);
/// The same, and the failure with that cause.
Outcome loggedFailure(const Error& error);

/// Why the standard exception was thrown that is being handled: its cause, or its description when nobody knows it.
std::string currentReason();

/// The log's path in the program directory.
std::string errorLogPath();

/// Sends what event handlers throw to reportError. Called once at start.
void installErrorReporting();

}  // namespace kelvor
