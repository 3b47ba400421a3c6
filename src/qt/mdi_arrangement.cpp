// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/mdi_arrangement.h"

#include <algorithm>

namespace kelvor::qt {

namespace {

/// In pixels; what a tile needs to show its title and some lines.
constexpr int leastWidth = 240;
constexpr int leastHeight = 140;

int quotientRoundedUp(int dividend, int divisor) {
    return (dividend + divisor - 1) / divisor;
}

/// The start of part `index` when `length` is cut into `count` parts, which differ by a pixel at most.
int partStart(int length, int count, int index) {
    return static_cast<int>(static_cast<long long>(length) * index / count);
}

}  // namespace

std::vector<QRect> tiles(const QSize& area, int count, Qt::Orientation orientation) {
    std::vector<QRect> places;
    if (count <= 0) return places;
    const bool wide = orientation == Qt::Horizontal;
    const int along = wide ? area.height() : area.width();
    const int across = wide ? area.width() : area.height();
    const int inOneLane = std::max(1, along / (wide ? leastHeight : leastWidth));
    const int lanes = quotientRoundedUp(count, inOneLane);
    for (int lane = 0; lane < lanes; ++lane) {
        const int here = partStart(count, lanes, lane + 1) - partStart(count, lanes, lane);
        const int laneStart = partStart(across, lanes, lane);
        const int laneSize = partStart(across, lanes, lane + 1) - laneStart;
        for (int i = 0; i < here; ++i) {
            const int start = partStart(along, here, i);
            const int size = partStart(along, here, i + 1) - start;
            places.push_back(wide ? QRect(laneStart, start, laneSize, size) : QRect(start, laneStart, size, laneSize));
        }
    }
    return places;
}

std::vector<QRect> cascade(const QSize& area, int count, int step) {
    const QSize size(std::max(std::min(leastWidth, area.width()), area.width() * 3 / 4),
                     std::max(std::min(leastHeight, area.height()), area.height() * 3 / 4));
    const int room = std::min(area.width() - size.width(), area.height() - size.height());
    const int inOneRun = std::max(1, room / std::max(1, step) + 1);
    std::vector<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int offset = i % inOneRun * step;
        places.emplace_back(QPoint(offset, offset), size);
    }
    return places;
}

std::vector<QRect> iconPlaces(const QSize& area, int count, const QSize& icon) {
    const int inOneRow = std::max(1, area.width() / std::max(1, icon.width()));
    std::vector<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int top = area.height() - (i / inOneRow + 1) * icon.height();
        places.emplace_back(QPoint(i % inOneRow * icon.width(), top), icon);
    }
    return places;
}

int iconHeight(const QSize& area, int count, const QSize& icon) {
    const int inOneRow = std::max(1, area.width() / std::max(1, icon.width()));
    return quotientRoundedUp(count, inOneRow) * icon.height();
}

}  // namespace kelvor::qt
