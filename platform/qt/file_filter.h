#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace kelvor::qt {

/// The rows of a filter text "Name|patterns|Name|patterns" as the file dialog takes them, "Name (pattern pattern)".
/// "*.*" and a row without patterns stand for all files. A text without a row gives one row of all files.
QStringList nameFilters(std::string_view filter);

}  // namespace kelvor::qt
