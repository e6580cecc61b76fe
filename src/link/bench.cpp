// SPDX-License-Identifier: MIT
#include "link/bench.h"

namespace zor {

void Bench::setMirror(bool WindowSwitches::*on, Monitor* receiver) {
    for (Mirror& mirror : mirrors) {
        if (mirror.on == on) {
            mirror.receiver = receiver;
        }
    }
}

void Bench::warn(const std::string& text) const {
    platform.dialogs.show({.text = text, .icon = BoxIcon::Warning});
}

void Bench::tellError(const ToolError& error, const std::string& title, const std::string& closing) const {
    platform.dialogs.show({.text = errorBoxText(error, closing), .title = title, .icon = BoxIcon::Critical});
}

void Bench::tellFileError(const ToolError& error, const std::string& title,
                          const std::string& closing) const {
    if (error.number() != unsupported) {
        tellError(error, title, closing);
        return;
    }
    platform.dialogs.show(
        {.text = "File type not supported! Please try again!", .title = title, .icon = BoxIcon::Critical});
}

} // namespace zor
