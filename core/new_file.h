#pragma once

namespace kelvor {

/// Offers the templates for a new document; without any the user is told where they belong.
void mnuFile_New_Click();

}  // namespace kelvor
