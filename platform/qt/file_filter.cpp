#include "platform/qt/file_filter.h"

#include "platform/qt/convert.h"

namespace kelvor::qt {

namespace {

const QString everyFile = QStringLiteral("*");

QString patternsOf(const QString& text) {
    QStringList patterns;
    for (const QString& part : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty()) patterns += pattern == QLatin1String("*.*") ? everyFile : pattern;
    }
    return patterns.isEmpty() ? everyFile : patterns.join(QLatin1Char(' '));
}

}  // namespace

QStringList nameFilters(std::string_view filter) {
    const QStringList parts = toQt(filter).split(QLatin1Char('|'));
    QStringList rows;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        rows += QStringLiteral("%1 (%2)").arg(parts[i].trimmed(), patternsOf(parts[i + 1]));
    if (rows.isEmpty()) rows += QStringLiteral("All Files (%1)").arg(everyFile);
    return rows;
}

}  // namespace kelvor::qt
