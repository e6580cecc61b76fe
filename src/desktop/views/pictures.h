// SPDX-License-Identifier: MIT
// The product's own pictures. They are drawn, in the palette's colours, so that they suit light and dark and
// any size.
#pragma once

#include <QIcon>

class QWidget;

namespace zor {

class Element;
class Button;

/// The product's sign, a carrier that is keyed by data, on a ground of its own: for windows and task bars.
[[nodiscard]] QIcon productIcon();
/// The icon as a picture.
[[nodiscard]] QWidget* iconPicture(Element& element, int height);
/// The greeting: name, sign and what the program is for. A click acts.
[[nodiscard]] QWidget* splashPicture(Button& element);
/// Block diagram of the receivers' data filter.
[[nodiscard]] QWidget* dataFilterPicture(Element& element);

} // namespace zor
