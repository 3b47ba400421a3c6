#pragma once

namespace kelvor {

/// Unloads the tool forms that can stay open beside a document, in their fixed order.
void unloadFixedForms();

}  // namespace kelvor
