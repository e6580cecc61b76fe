// SPDX-License-Identifier: MIT
#include "desktop/screen_room.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace zor {

namespace {

qint64 commonArea(const QRect& a, const QRect& b) {
    // In 64 bits: a file may tell of a window of any size anywhere.
    auto overlap = [](qint64 from, qint64 to, qint64 otherFrom, qint64 otherTo) {
        return std::max<qint64>(0, std::min(to, otherTo) - std::max(from, otherFrom));
    };
    return overlap(a.left(), qint64{a.left()} + a.width(), b.left(), qint64{b.left()} + b.width()) *
           overlap(a.top(), qint64{a.top()} + a.height(), b.top(), qint64{b.top()} + b.height());
}

} // namespace

std::vector<QRect> availableScreens() {
    std::vector<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.push_back(screen->availableGeometry());
    }
    return screens;
}

QRect withinScreens(const QRect& wanted, const std::vector<QRect>& screens, const QMargins& frame) {
    if (screens.empty()) {
        return wanted;
    }
    const QRect& screen =
        *std::max_element(screens.begin(), screens.end(), [&wanted](const QRect& a, const QRect& b) {
            return commonArea(a, wanted) < commonArea(b, wanted);
        });
    QRect room = screen.marginsRemoved(frame);
    QSize size = wanted.size().boundedTo(room.size());
    return {std::clamp(wanted.left(), room.left(), room.left() + room.width() - size.width()),
            std::clamp(wanted.top(), room.top(), room.top() + room.height() - size.height()), size.width(),
            size.height()};
}

} // namespace zor
