// SPDX-License-Identifier: MIT
// A memory's picture beside its text, level with it.
#pragma once

#include "elements/cell_picture.h"

class QPlainTextEdit;
class QWidget;

namespace zor {

/// A memory's cells, painted; arrow keys and clicks pick one, and a pointer at rest is told what it holds.
/// @param rowHeight  in pixels, as far as there is room
[[nodiscard]] QWidget* cellPicture(CellPicture& element, double rowHeight);
/// The bytes' places, to stand directly above a text of fixed pitch, 32 bytes a line and a blank between two.
/// As high as the picture's own ruler: the text's first line is level with the first row of cells.
[[nodiscard]] QWidget* byteRuler(const QPlainTextEdit& text);

} // namespace zor
