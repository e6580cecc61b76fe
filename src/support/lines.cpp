// SPDX-License-Identifier: MIT
#include "support/lines.h"

#include <algorithm>

namespace zor {

std::string withLineEnds(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 16 + 2);
    while (!bytes.empty()) {
        std::size_t end = bytes.find_first_of("\r\n");
        text += bytes.substr(0, end);
        text += "\r\n";
        if (end == std::string_view::npos) {
            break;
        }
        bool pair = bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n';
        bytes.remove_prefix(end + (pair ? 2 : 1));
    }
    return text;
}

std::string_view withoutLineEnd(std::string_view line) {
    return line.substr(0, line.find_last_not_of("\r\n") + 1);
}

std::string_view trimmed(std::string_view text, std::string_view around) {
    text.remove_prefix(std::min(text.find_first_not_of(around), text.size()));
    return text.substr(0, text.find_last_not_of(around) + 1);
}

} // namespace zor
