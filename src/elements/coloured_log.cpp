// SPDX-License-Identifier: MIT
#include "elements/coloured_log.h"

#include <cstddef>
#include <utility>

namespace zor {

std::string ColouredLog::text() const {
    std::string joined;
    for (const Line& line : all) {
        joined += line.text + "\r\n";
    }
    return joined;
}

void ColouredLog::append(LogColour colour, std::string text) {
    all.push_back({colour, std::move(text)});
    // A subscriber may clear the log: what it is told of is not the log's own line.
    Line told = all.back();
    appended.emit(told);
    if (all.size() > mostLines) {
        dropOldest();
    }
}

void ColouredLog::dropOldest() {
    // A quarter at once, so that moving the rest costs next to nothing a line.
    std::size_t count = mostLines / 4;
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count));
    dropped += count;
    cleared += count;
    changed.emit();
    setHint("The oldest " + std::to_string(dropped) + " lines are gone; the newest " +
            std::to_string(mostLines) + " are kept.");
}

void ColouredLog::clear() {
    cleared += all.size();
    all.clear();
    dropped = 0;
    changed.emit();
    setHint({});
}

} // namespace zor
