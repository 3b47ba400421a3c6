// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/popup_place.h"

#include <QCursor>
#include <optional>
#include <utility>

namespace kelvor::qt {

namespace {

std::optional<QPoint> told;

}  // namespace

PopupPlace::PopupPlace(const QPoint& place) {
    told = place;
}

PopupPlace::~PopupPlace() {
    told.reset();
}

QPoint PopupPlace::take() {
    const auto place = std::exchange(told, {});
    return place ? *place : QCursor::pos();
}

}  // namespace kelvor::qt
