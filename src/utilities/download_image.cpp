// SPDX-License-Identifier: MIT
#include "utilities/download_image.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::string_view lineEnd = "\r\n";

} // namespace

DownloadImage::DownloadImage(std::string_view file) {
    if (file.empty()) {
        return;
    }
    content.reserve(file.size() + file.size() / 16 + 3);
    content = "L";
    while (!file.empty()) {
        std::size_t end = std::min(file.find('\n'), file.size());
        std::string_view line = file.substr(0, end);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lastLine = lines == 0 ? 0 : content.size();
        content.append(line).append(lineEnd);
        ++lines;
        file.remove_prefix(std::min(end + 1, file.size()));
    }
}

std::string LineCutter::cut(const std::string& text) {
    std::size_t begin = std::min(Position - 1, text.size());
    std::size_t end = text.find(lineEnd, begin);
    end = end == std::string::npos ? text.size() : end + lineEnd.size();
    Position = end + 1;
    return text.substr(begin, end - begin);
}

} // namespace zor
