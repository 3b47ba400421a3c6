// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_libraries.h"

#include <Qsci/qsciglobal.h>

#include <QtGlobal>

#include "files/compressed.h"
#include "files/content_hash.h"
#include "qt/browser_loader.h"
#include "qt/convert.h"
#include "support/settings_database.h"
#include "text/line_difference.h"
#include "text/text_order.h"

namespace kelvor::qt {

std::vector<std::string> QtLibraries::inUse() {
    std::vector<std::string> libraries = {std::string("Qt ") + qVersion(), "QScintilla " QSCINTILLA_VERSION_STR,
                                          "ICU " + icuVersion(),           "libgit2 " + libgit2Version(),
                                          "SQLite " + sqliteVersion(),     "xxHash " + xxhashVersion(),
                                          "Zstandard " + zstdVersion()};
    if (const QString engine = browserVersion(); !engine.isEmpty())
        libraries.push_back("Qt WebEngine " + fromQt(engine));
    return libraries;
}

}  // namespace kelvor::qt
