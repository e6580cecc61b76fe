// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRect>

#include <vector>

namespace zor {

/// What each screen has room for beside the desktop's own bars, the first screen first.
[[nodiscard]] std::vector<QRect> availableScreens();

/// The nearest place and the largest size up to the wanted one at which a window is inside one screen with
/// its frame: the screen that shows most of it, else the first. Without a screen it stays as it is.
/// @param wanted  without its frame
[[nodiscard]] QRect withinScreens(const QRect& wanted, const std::vector<QRect>& screens,
                                  const QMargins& frame);

} // namespace zor
