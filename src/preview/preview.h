// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

namespace kelvor {

class CDocument;

/// The rows that the preview menu has for the user's browsers.
inline constexpr std::size_t browserCapacity = 15;

/// Shows a document's page in its own window, when the document is saved or the user saves it now.
void InLinePreview(CDocument& document);

/// Shows the current document's file with the desktop's browser.
void previewDefault();

/// Shows the current document's file with the browser of that label. A program that is not there is told; any other
/// failure of its start shows nothing.
void previewAlternate(const std::string& label);

/// Lists the user's browsers in the popup menu, at most 15; one more is an error 35601.
void setUpBrowsers();

/// Switches the current document to its source (1) or its preview (2), and the commands with it.
void ChangeViewMode(int mode);

/// Stores the choice and puts it in force.
void setEnforceVDirs(bool enforce);

}  // namespace kelvor
