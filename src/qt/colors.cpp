// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/colors.h"

#include <algorithm>
#include <cmath>

namespace kelvor::qt {

namespace {

/// The light that a channel of the screen gives, of 1.
double light(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) + 0.0722 * light(color.blueF());
}

}  // namespace

QColor between(const QColor& from, const QColor& to, double part) {
    const auto mixed = [part](int first, int second) { return qRound(first + (second - first) * part); };
    return {mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())};
}

QColor readable(const QColor& from, const QColor& to, const QColor& background) {
    constexpr double step = 0.05;
    for (double part = 0; part < 1; part += step) {
        const QColor color = between(from, to, part);
        if (isReadable(color, background)) return color;
    }
    return to;
}

bool isReadable(const QColor& text, const QColor& background) {
    constexpr double effortless = 4.5;
    return contrast(text, background) >= effortless;
}

double contrast(const QColor& first, const QColor& second) {
    constexpr double glare = 0.05;
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + glare) / (darker + glare);
}

}  // namespace kelvor::qt
