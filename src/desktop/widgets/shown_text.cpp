// SPDX-License-Identifier: MIT
#include "desktop/widgets/shown_text.h"

#include <QByteArrayView>

#include <algorithm>

namespace zor {

namespace {

constexpr char16_t controlPictures = 0x2400;
constexpr char16_t deletePicture = 0x2421;
/// What an area's document has between its lines, and in them after a soft break.
constexpr char16_t paragraphEnd = 0x2029;
constexpr char16_t lineEnd = 0x2028;

bool isControl(char16_t code) {
    return code < 0x20 || code == 0x7F;
}

/// What a document of the toolkit takes for something else than a character.
bool isDocumentMark(char16_t code) {
    return code == paragraphEnd || code == lineEnd || code == 0xFDD0 || code == 0xFDD1 || code == 0xFFFC;
}

/// The bytes of a UTF-8 character by its first one; the text is known to be whole.
std::size_t lengthOf(unsigned char first) {
    return first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// A byte that is a character of its own.
QChar ofByte(unsigned char byte) {
    char16_t code = byte;
    if (isControl(code) && code != '\t') {
        code = byte == 0x7F ? deletePicture : static_cast<char16_t>(controlPictures + byte);
    }
    return code;
}

} // namespace

ShownText::ShownText(std::string_view bytes, Lines lines)
    : lineForm(lines)
    , original(bytes) {
    isUtf8 = QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
    // No character has more of the toolkit's units than bytes.
    shown.resize(static_cast<qsizetype>(bytes.size()));
    begins.resize(bytes.size() + 1);
    QChar* unit = shown.data();
    std::size_t* begin = begins.data();
    std::size_t at = 0;
    auto add = [&](QChar character) {
        *unit++ = character;
        *begin++ = at;
    };
    while (at < original.size()) {
        auto byte = static_cast<unsigned char>(original[at]);
        if (lines == Lines::Many && (byte == '\r' || byte == '\n')) {
            add(QLatin1Char('\n'));
            at += original.compare(at, 2, "\r\n") == 0 ? 2 : 1;
        } else if (byte < 0x80 || !isUtf8) {
            add(ofByte(byte));
            ++at;
        } else {
            std::size_t length = lengthOf(byte);
            // One beyond the basic plane takes two units; none ends between them.
            for (QChar character : QString::fromUtf8(original.data() + at, static_cast<qsizetype>(length))) {
                add(isDocumentMark(character.unicode()) ? QChar(QChar::ReplacementCharacter) : character);
            }
            at += length;
        }
    }
    *begin = original.size();
    shown.truncate(unit - shown.constData());
    begins.resize(static_cast<std::size_t>(shown.size()) + 1);
}

std::string ShownText::encoded(const QString& typed) const {
    QString text;
    for (QChar character : typed) {
        char16_t code = character.unicode();
        if (code == paragraphEnd || code == lineEnd || code == '\n') {
            text += lineForm == Lines::Many ? QStringLiteral("\r\n") : QStringLiteral(" ");
        } else if (code != '\r') {
            text += character;
        }
    }
    if (isUtf8) {
        return text.toStdString();
    }
    std::string bytes;
    for (QChar character : text) {
        bytes += character.unicode() < 0x100 ? static_cast<char>(character.unicode()) : '?';
    }
    return bytes;
}

std::string ShownText::edited(const QString& newText) const {
    // What is the same in front and behind was not touched.
    qsizetype most = std::min(shown.size(), newText.size());
    qsizetype front =
        std::mismatch(shown.begin(), shown.begin() + most, newText.begin()).first - shown.begin();
    if (front > 0 && shown[front - 1].isHighSurrogate()) {
        --front;
    }
    qsizetype back = 0;
    while (back < most - front && shown[shown.size() - 1 - back] == newText[newText.size() - 1 - back]) {
        ++back;
    }
    if (back > 0 && shown[shown.size() - back].isLowSurrogate()) {
        --back;
    }
    return original.substr(0, bytesBefore(front)) +
           encoded(newText.mid(front, newText.size() - front - back)) +
           original.substr(bytesBefore(shown.size() - back));
}

std::size_t ShownText::bytesBefore(qsizetype position) const {
    return begins[static_cast<std::size_t>(std::clamp<qsizetype>(position, 0, shown.size()))];
}

qsizetype ShownText::positionOf(std::size_t byte) const {
    return std::lower_bound(begins.begin(), begins.end(), byte) - begins.begin();
}

} // namespace zor
