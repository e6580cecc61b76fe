// SPDX-License-Identifier: MIT
#include "link/bench.h"

#include "support/numbers.h"

#include <utility>

namespace zor {

void Bench::setMirror(bool WindowSwitches::*on, Monitor* receiver) {
    for (Mirror& mirror : mirrors) {
        if (mirror.on == on) {
            mirror.receiver = receiver;
        }
    }
}

void Bench::tellReading(std::string_view typed) {
    bool blank = typed.find_first_not_of(' ') == std::string_view::npos;
    if (blank || numericPrefixLength(typed) == typed.size()) {
        if (!toldReading.empty()) {
            withdrawn.emit(std::exchange(toldReading, {}));
        }
        return;
    }
    // A text out of a file may be of any length.
    constexpr std::size_t shownLength = 40;
    std::string quoted(typed.substr(0, shownLength));
    quoted += typed.size() > shownLength ? "..." : "";
    toldReading = "\"" + quoted + "\" was read as " + numberText(numericPrefix(typed)) + ".";
    notice(toldReading);
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
