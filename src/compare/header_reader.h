// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// A text that cannot be taken as a header of the chip; says the line.
class HeaderFault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What a header is read for: the generator's own macros of one chip.
struct HeaderVocabulary {
    /// The macros' names behind the prefix.
    std::vector<std::string> commands;
    /// The chips that headers are made for, variants too.
    std::vector<std::string> devices;
};

/// The numbers that a header gives to a chip's macros.
struct HeaderContent {
    struct Macro {
        std::string command;
        std::uint32_t value = 0;
        int line = 0;
    };
    /// In the text's order, each command once.
    std::vector<Macro> macros;
    /// Of UPCLKFREQUENCY, in Hz.
    std::optional<Macro> crystal;
    /// The chip that the guard macro or the title says; empty if none does.
    std::string device;
    int deviceLine = 0;
    /// The revision that the title says; empty if none is said.
    std::string revision;
    /// Macros that end as commands do and are none of the chip's, as they stand.
    std::vector<std::string> foreign;
};

/// Reads a header of the generator's form, or any text in which the macros' names stand before their values:
/// "#define X_FREQSET_CMD 0xA7D0", "FREQSET_CMD = 0xA7D0;". What stands in front of a command's name does not
/// count. Throws HeaderFault for a macro without a number, one that stands twice, and a text without any.
[[nodiscard]] HeaderContent readHeader(std::string_view text, const HeaderVocabulary& vocabulary);

/// A word as a person writes it: hexadecimal, with or without "0x", with or without the command letter and
/// digit that send it ("S2A7D0"); blanks around it do not count.
struct WrittenWord {
    std::uint32_t value = 0;
    /// Bits of the transfer that a command letter named; 0 without one.
    int bits = 0;
};
[[nodiscard]] std::optional<WrittenWord> readWrittenWord(std::string_view text);

} // namespace zor
