// SPDX-License-Identifier: MIT
#pragma once

#include "elements/colour.h"

#include <QColor>
#include <QPalette>

namespace zor {

/// Every colour that is not the palette's own, by what it says. Texts have a contrast of 4.5 to 1 or more on
/// the background that is named with them.
struct RoleColours {
    QColor accent;     ///< back of the one strong button
    QColor accentText; ///< on accent
    QColor pendingBack;
    QColor pendingText;  ///< on pendingBack: a word that was not sent yet
    QColor reminder;     ///< on the window: "Update needed"
    QColor error;        ///< on the window
    QColor softText;     ///< on the window and in a field: units, remarks
    QColor directive;    ///< in a field: "#define" in C text
    QColor codeComment;  ///< in a field: a comment in C text
    QColor lit;          ///< a lit lamp
    QColor litEdge;      ///< a lit lamp's edge, on the window
    QColor darkEdge;     ///< a dark lamp's edge, on the window
    QColor edge;         ///< outline of boxes, radio circles and fields
    QColor titleBar;     ///< of the active inner window
    QColor pickedRow;    ///< ground of a table's picked row and of what it stands for
    QColor logBlue;      ///< in a field: a run begins or ends
    QColor logGreen;     ///< in a field: something was found right
    QColor lockedGround; ///< of a field that takes no typing until it is unlocked
};

enum class Scheme { Light, Dark };

[[nodiscard]] Scheme schemeOf(const QPalette& palette);
[[nodiscard]] const RoleColours& roles(Scheme scheme);
[[nodiscard]] inline const RoleColours& roles(const QPalette& palette) {
    return roles(schemeOf(palette));
}

/// The palettes of --light and --dark; without those the system's own holds.
[[nodiscard]] QPalette schemePalette(Scheme scheme);

/// Contrast of two colours as accessibility guides count it, from 1 (none) to 21.
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

[[nodiscard]] inline QColor toQt(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

/// Black or white, whichever can be read on that background.
[[nodiscard]] QColor readableOn(const QColor& background);

} // namespace zor
