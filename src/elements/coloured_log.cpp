// SPDX-License-Identifier: MIT
#include "elements/coloured_log.h"

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
}

void ColouredLog::clear() {
    cleared += all.size();
    all.clear();
    changed.emit();
}

} // namespace zor
