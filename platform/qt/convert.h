#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kelvor::qt {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

/// The text with CR LF and CR as LF, as labels and boxes break lines.
QString plainLines(std::string_view text);

/// At most `limit` characters of the text, the middle left out when there are more.
QString elidedInTheMiddle(const QString& text, int limit);

/// A caption as a window's title: long ones elided, nothing in it taken for a placeholder.
QString windowTitle(std::string_view caption);

/// A text as a menu row shows it unchanged, with no access key in it.
QString menuText(const QString& text);

/// A text as a tool tip shows it unchanged, mark-up included.
QString toolTipText(std::string_view text);

}  // namespace kelvor::qt
