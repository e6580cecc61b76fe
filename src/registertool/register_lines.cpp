// SPDX-License-Identifier: MIT
#include "registertool/register_lines.h"

#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::string_view transferWord = "S2 ";
constexpr std::size_t byteDigits = 2;
// Counted from 0 in the last 15 characters: prompt, separator and value are read from the end.
constexpr std::size_t highBytePlace = 3;
constexpr std::size_t lowBytePlace = 5;

// clang-format off
constexpr std::string_view nibbles[] = {"0000", "0001", "0010", "0011", "0100", "0101", "0110", "0111",
                                        "1000", "1001", "1010", "1011", "1100", "1101", "1110", "1111"};
// clang-format on

std::string_view nibble(std::string_view hex, std::size_t position) {
    int value = position < hex.size() ? hexDigit(hex[position]) : -1;
    return value < 0 ? std::string_view("....") : nibbles[value];
}

std::string bytePart(std::string_view last15, std::size_t place) {
    return place < last15.size() ? std::string(last15.substr(place, byteDigits)) : std::string();
}

} // namespace

std::string HexToBinary(std::string_view hex) {
    return std::string(nibble(hex, 0)).append(nibble(hex, 1));
}

std::string binaryValue(std::string_view hex) {
    return std::string(nibble(hex, 0)).append(" ").append(nibble(hex, 1));
}

std::string twoDigits(std::string_view text) {
    std::string padded = "00" + std::string(text);
    return padded.substr(padded.size() - 2);
}

std::string readLine(std::string_view address) {
    return std::string(transferWord) + (std::string(address) + "000").substr(0, 4) + "\r";
}

std::string tableReadLine(std::string_view address) {
    return std::string(transferWord) + std::string(address) + "00\r";
}

std::string writeAddress(std::string_view address) {
    char first = address.empty() ? '0' : address.front();
    unsigned digit = isDigit(first) ? static_cast<unsigned>(first - '0') : 0;
    return hexText(digit + 8) + std::string(address.substr(0, 2).substr(address.empty() ? 0 : 1));
}

std::string writeLine(std::string_view address, std::string_view value) {
    return std::string(transferWord) + writeAddress(address) + std::string(value) + "\r";
}

std::string answeredByte(std::string_view last15) {
    return bytePart(last15, lowBytePlace);
}

std::string answeredHighByte(std::string_view last15) {
    return bytePart(last15, highBytePlace);
}

RegisterLine readRegisterLine(std::string_view line) {
    std::size_t comma = std::min(line.find(','), line.size());
    RegisterLine entry{std::string(line.substr(0, comma)),
                       std::string(line.substr(std::min(comma + 1, line.size())))};
    std::erase(entry.address, ' ');
    std::erase(entry.value, ' ');
    return entry;
}

} // namespace zor
