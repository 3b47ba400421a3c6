// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace kelvor::qt {

/// The colour that is `part`, of 1, of the way.
QColor between(const QColor& from, const QColor& to, double part);

/// Whether a text of that colour can be read without effort.
bool isReadable(const QColor& text, const QColor& background);

/// The first colour on the way from one to another that can be read without effort on the background; the other where
/// none can.
QColor readable(const QColor& from, const QColor& to, const QColor& background);

/// How far apart two colours are for the eye: from 1, the same, to 21, black and white.
double contrast(const QColor& first, const QColor& second);

}  // namespace kelvor::qt
