// SPDX-License-Identifier: MIT
#include "utilities/typed_lines.h"

namespace zor {

void TypedLines::add(const std::string& line) {
    endWalk();
    if (line.empty() || (!lines.empty() && lines.back() == line)) {
        return;
    }
    if (lines.size() == most) {
        lines.pop_front();
    }
    lines.push_back(line);
}

void TypedLines::endWalk() {
    back = 0;
    draft.clear();
}

std::optional<std::string> TypedLines::walk(int step, const std::string& current) {
    if ((step < 0 && back == lines.size()) || (step > 0 && back == 0)) {
        return std::nullopt;
    }
    if (back == 0) {
        draft = current;
    }
    back += step < 0 ? 1 : std::size_t(-1);
    return back == 0 ? draft : lines[lines.size() - back];
}

} // namespace zor
