// SPDX-License-Identifier: MIT
#include "elements/monitor.h"

#include <algorithm>

namespace zor {

void Monitor::append(std::string_view text) {
    content += text;
    appended.emit(text);
}

void Monitor::clear() {
    // With its room: it may have been megabytes.
    std::string().swap(content);
    cursorPosition = 0;
    changed.emit();
}

void Monitor::keepFrom(std::size_t position) {
    if (position == 0) {
        return;
    }
    std::size_t dropped = std::min(position, content.size());
    content.erase(0, dropped);
    cursorPosition -= std::min(cursorPosition, dropped);
    changed.emit();
}

void Monitor::takeBackLast() {
    if (content.empty()) {
        return;
    }
    bool lineEnd = content.size() >= 2 && content.compare(content.size() - 2, 2, "\r\n") == 0;
    content.resize(content.size() - (lineEnd ? 2 : 1));
    changed.emit();
}

bool Monitor::press(char key) {
    if (isLocked) {
        return false;
    }
    return act({GestureKind::Press, std::string_view(&key, 1)}, [&] {
        if (key == '\b') {
            takeBackLast();
        } else if (key == '\r') {
            append("\r\n");
        } else {
            append(std::string_view(&key, 1));
        }
        if (onKey) {
            onKey(key);
        }
    });
}

} // namespace zor
