// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string_view>

class QMenu;

namespace kelvor {
class MdiArea;
}

namespace kelvor::qt {

/// A path with the file's name first, since that is what tells windows apart: "a.html - /web". Other captions as they
/// are.
QString nameFirst(std::string_view caption);

/// Lists the area's windows at the end of `menu` whenever it opens, the one in front with a mark: the first nine, each
/// with its digit, and a row for the list of all when there are more.
void listWindows(MdiArea& area, QMenu& menu);

}  // namespace kelvor::qt
