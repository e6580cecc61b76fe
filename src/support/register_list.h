// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// A chip of the register database, as a person writes it.
struct ListedChip {
    int id = 0;
    std::string name;
    std::string project;
    /// In bytes; a text as the database holds it.
    std::string txFifoSize;
    std::string rxFifoSize;
    /// Two hexadecimal digits; nothing where the chip has none.
    std::optional<std::string> txFifoAddress;
    std::optional<std::string> rxFifoAddress;
    /// The FIFOs are reached under the select line rather than through the two addresses.
    bool fifoSelectLine = false;
};

struct ListedRegister {
    int chip = 0;
    std::string address;
    std::string name;
    bool readable = false;
    bool writable = false;
    bool radio = false;
    bool test = false;
    bool digital = false;
    bool misc = false;
    bool status = false;
    std::string defaultValue;
    /// 8 or 16.
    int bits = 8;
    /// By the bit's number.
    std::array<std::string, 16> bitNames;
    std::string description;
};

/// Chips and registers in a text that a person can read and edit:
///
///     # comment
///     chip ID "NAME" "PROJECT" TXSIZE RXSIZE TXADDRESS RXADDRESS line|registers
///     register CHIP AA "NAME" FLAGS DD BITS "BIT NAMES" "DESCRIPTION"
///
/// An address that there is not is `null`; FLAGS are some of R W RF Test Digital Misc Status with commas
/// between them, or `-`; DD is the value after reset; the bit names run from the highest bit down.
struct RegisterList {
    std::vector<ListedChip> chips;
    std::vector<ListedRegister> registers;
};

/// A line that cannot be read.
struct RegisterListError : std::runtime_error {
    RegisterListError(std::size_t failedLine, const std::string& what)
        : std::runtime_error(what)
        , line(failedLine) {}
    /// From 1.
    std::size_t line;
};

/// Throws RegisterListError.
[[nodiscard]] RegisterList readRegisterList(std::string_view text);

} // namespace zor
