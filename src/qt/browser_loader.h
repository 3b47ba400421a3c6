// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace kelvor::qt {

class BrowserModule;

/// The preview's browser, or the reason why there is none.
struct BrowserFound {
    BrowserModule* module = nullptr;
    QString problem;  ///< a sentence for the user, or more
};

/// Loads the browser module at the first call. It stands beside the executable, or in ../lib/kelvor/modules of an
/// installation. Where the web engine would end the program instead of running, nothing of it is loaded.
BrowserFound loadBrowser();

/// The web engine's version; "" before the module is loaded.
QString browserVersion();

}  // namespace kelvor::qt
