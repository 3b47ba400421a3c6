// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/dialogs.h"

namespace kelvor {

/// Beeps and shows a box with OK alone.
/// @param cause  as Message::cause
Answer showCritical(const std::string& title, const std::string& text, const std::string& cause = {});

/// Whether the user wants to delete what the question names; a No is offered.
bool confirmDeletion(const std::string& question);

/// Whether a name is free of the characters that no file name may have; the user has been told otherwise.
bool validFileName(std::string_view name);

/// @param cause  why, as Message::cause
void reportOpenError(const std::string& file, const std::string& cause = {});

/// What a dialog shows that cannot do without one of its fields.
void reportEmptyFields();

void reportFileMissing(const std::string& file);

/// @param cause  why, as Message::cause
void reportSaveError(const std::string& file, const std::string& cause = {});

}  // namespace kelvor
