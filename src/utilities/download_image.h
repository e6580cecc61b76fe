// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zor {

/// A firmware file as it goes to the loader: its lines as they stand, each ended by CR LF, the first with the
/// "L" of the load command in front.
class DownloadImage {
  public:
    /// @param file  lines ended by CR LF or LF; a last line without an end counts
    explicit DownloadImage(std::string_view file);

    [[nodiscard]] bool empty() const { return content.empty(); }
    [[nodiscard]] const std::string& text() const { return content; }
    [[nodiscard]] std::size_t lineCount() const { return lines; }

    /// How much of it a download sends. The loader's way of finding the end, kept from its first firmware on,
    /// leaves out the last line, unless it is the only one.
    [[nodiscard]] std::size_t linesToSend() const { return lines > 1 ? lines - 1 : lines; }
    /// Characters of those lines, their ends included.
    [[nodiscard]] std::size_t bytesToSend() const { return lines > 1 ? lastLine : content.size(); }
    /// The line that is left out holds something.
    [[nodiscard]] bool losesLastLine() const { return lines > 1 && content.size() > lastLine + 2; }

  private:
    std::string content;
    std::size_t lines = 0;
    /// Where the last line begins.
    std::size_t lastLine = 0;
};

/// Cuts one line after the other off an image.
class LineCutter {
  public:
    /// The next line with its end; empty behind the last one.
    std::string cut(const std::string& text);
    /// Of the next character, 1 the first.
    [[nodiscard]] std::size_t position() const { return Position; }
    /// Nothing is left behind what was cut last.
    [[nodiscard]] bool atEnd(const std::string& text) const { return Position >= text.size(); }

  private:
    std::size_t Position = 1;
};

} // namespace zor
