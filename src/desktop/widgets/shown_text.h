// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// A text of the core as a field or an area of the toolkit shows it, and the way back of what a user changes
/// in it: bytes whose characters he did not touch stay as they were, whatever they mean.
///
/// UTF-8 shows as its characters; a text that is not shows one character a byte. Control characters show as
/// their pictures; an area shows CR LF, and either alone, as a line's end.
class ShownText {
  public:
    enum class Lines { One, Many };

    ShownText(std::string_view bytes, Lines lines);

    /// As the toolkit holds it; its line ends are LF.
    [[nodiscard]] const QString& text() const { return shown; }
    /// The bytes of a text that came of this one by typing, pasting or erasing somewhere in it. Characters
    /// that the text's own form has no byte for become question marks.
    [[nodiscard]] std::string edited(const QString& newText) const;
    /// How many bytes stand in front of a place in the shown text.
    [[nodiscard]] std::size_t bytesBefore(qsizetype position) const;
    /// The place in the shown text behind so many bytes.
    [[nodiscard]] qsizetype positionOf(std::size_t byte) const;

  private:
    [[nodiscard]] std::string encoded(const QString& typed) const;

    Lines lineForm;
    std::string original;
    QString shown;
    /// Where the character of each of the toolkit's units begins in the original; one more for the end.
    std::vector<std::size_t> begins;
    bool isUtf8 = true;
};

} // namespace zor
