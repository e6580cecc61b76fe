// SPDX-License-Identifier: MIT
// The picture of the memory, the caret that it shares with the text, and how far a run is.
#include "eeprom/eeprom.h"
#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

using Cell = CellPicture::Cell;

/// A byte's digits out of a row of them; empty behind their end.
std::string_view byteAt(std::string_view digits, std::size_t byte) {
    return 2 * byte < digits.size() ? digits.substr(2 * byte, 2) : std::string_view();
}

Cell kindOf(std::string_view buffer, std::string_view device) {
    if (buffer.empty()) {
        return Cell::Absent;
    }
    if (!device.empty() && buffer != device) {
        return Cell::Differs;
    }
    if (buffer == "ff") {
        return Cell::Empty;
    }
    return buffer == "00" ? Cell::Zero : Cell::Written;
}

/// The digits of as many bytes as the device has, at most.
std::string bufferDigits(const std::string& text) {
    std::string digits = foldedHexDigits(text);
    digits.resize(std::min(digits.size(), 2 * eepromBytes));
    return digits;
}

} // namespace

void Eeprom::showMemory() {
    shownDigits = bufferDigits(WorkSheet.text());
    std::vector<Cell> cells(eepromBytes, Cell::Absent);
    for (std::size_t byte = 0; byte < eepromBytes; ++byte) {
        cells[byte] = kindOf(byteAt(shownDigits, byte), byteAt(deviceDigits, byte));
    }
    MemoryPicture.setContents(std::move(cells));
    showCaret();
}

void Eeprom::showCaret() {
    std::string text = WorkSheet.text();
    std::size_t caret = WorkSheet.cursor();
    std::size_t before = countHexDigits(std::string_view(text).substr(0, caret));
    // Between a byte's digits the caret is in that byte; behind its second one still, up to the blank.
    bool behind = before > 0 && before % 2 == 0 && caret < text.size() && !isHexDigit(text[caret]);
    std::size_t byte = behind ? before / 2 - 1 : before / 2;
    bool inside = 2 * byte < shownDigits.size();
    MemoryPicture.pick(inside ? std::optional(byte) : std::nullopt);
    MemoryCaret.setCaption(inside ? memoryText(byte) : std::string());
}

std::string Eeprom::memoryText(std::size_t byte) const {
    std::string_view buffer = byteAt(shownDigits, byte);
    std::string_view device = byteAt(deviceDigits, byte);
    std::string text = "Address " + hexText(static_cast<std::uint32_t>(byte), 3);
    if (!buffer.empty()) {
        text += "  buffer " + std::string(buffer);
    }
    if (!device.empty()) {
        text += (buffer.empty() ? "  device " : ", device ") + std::string(device);
    }
    return text;
}

void Eeprom::caretToByte(std::size_t byte) {
    std::vector<std::size_t> places = bytePlaces(WorkSheet.text(), byte + 1);
    if (byte < places.size()) {
        WorkSheet.setCursor(places[byte]);
        showCaret();
    }
}

void Eeprom::showRunProgress(std::size_t done, std::size_t all) {
    std::string text = "byte " + std::to_string(done) + " of " + std::to_string(all);
    auto differences = std::ranges::count(MemoryPicture.contents(), Cell::Differs);
    if (differences > 0) {
        text += ", " + std::to_string(differences) + (differences == 1 ? " difference" : " differences") +
                " so far";
    }
    if (done > 0 && done <= all) {
        auto passed = std::chrono::duration<double>(bench.platform.loop.now() - runBegan);
        double left = passed.count() * static_cast<double>(all - done) / static_cast<double>(done);
        text += ", about " + std::to_string(roundToInt(left)) + " s left";
    }
    RunProgress.setCaption(text);
}

} // namespace zor
