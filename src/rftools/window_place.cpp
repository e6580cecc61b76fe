// SPDX-License-Identifier: MIT
#include "rftools/window_place.h"

#include "elements/desk.h"

#include <algorithm>

namespace zor {

namespace {

/// The nearest place at which the whole window is inside the main one; a window larger than that begins at
/// its corner.
Place kept(Place wanted, const Form& tool) {
    const Form* main = tool.desk().find("main");
    if (main == nullptr) {
        return wanted;
    }
    Extent room = main->extent();
    return {std::max(0.0F, std::min(wanted.top, room.height - tool.extent().height)),
            std::max(0.0F, std::min(wanted.left, room.width - tool.extent().width))};
}

} // namespace

void placeBeside(Form& tool, const Form* panel) {
    if (panel != nullptr) {
        tool.setPlace(kept({panel->place().top, panel->place().left + panel->extent().width}, tool));
    }
}

void placeBelow(Form& tool, const Form* above) {
    if (above != nullptr) {
        tool.setPlace(kept({above->place().top + above->extent().height, above->place().left}, tool));
    }
}

} // namespace zor
