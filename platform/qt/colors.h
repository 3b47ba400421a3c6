#pragma once

#include <QColor>

namespace kelvor::qt {

/// The colour that is `part`, of 1, of the way.
QColor between(const QColor& from, const QColor& to, double part);

/// How far apart two colours are for the eye: from 1, the same, to 21, black and white.
double contrast(const QColor& first, const QColor& second);

}  // namespace kelvor::qt
