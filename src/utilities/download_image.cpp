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
    // Most files end their lines as the loader wants them; what stands so already is copied in one piece.
    std::size_t copied = 0;
    for (std::size_t begin = 0; begin < file.size();) {
        std::size_t end = std::min(file.find('\n', begin), file.size());
        bool returns = end > begin && file[end - 1] == '\r';
        lastLine = lines == 0 ? 0 : content.size() + begin - copied;
        ++lines;
        if (!returns || end == file.size()) {
            content.append(file.substr(copied, end - copied - (returns ? 1 : 0))).append(lineEnd);
            copied = std::min(end + 1, file.size());
        }
        begin = end + 1;
    }
    content.append(file.substr(copied));
}

std::string LineCutter::cut(const std::string& text) {
    std::size_t begin = std::min(Position - 1, text.size());
    std::size_t end = text.find(lineEnd, begin);
    end = end == std::string::npos ? text.size() : end + lineEnd.size();
    Position = end + 1;
    return text.substr(begin, end - begin);
}

} // namespace zor
