// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zor::sim {

/// Why a line is no record that could be written.
enum class RecordFault {
    none,
    digits, // not pairs of hexadecimal digits
    length, // too short, or another number of bytes than it says
    sum,    // its bytes do not add up to 0
    type,   // none of the six types, or one with another length than the type has
};

enum class RecordType : std::uint8_t {
    data = 0,
    end = 1,
    segmentAddress = 2,
    segmentStart = 3,
    linearAddress = 4,
    linearStart = 5,
};

/// A record of a firmware file: ":", the number of data bytes, two bytes of address, the type, the data and a
/// sum that makes all bytes add up to 0.
struct HexRecord {
    RecordFault fault = RecordFault::none;
    std::uint16_t address = 0;
    RecordType type = RecordType::data;
    std::vector<std::uint8_t> data;
};

/// @param text  from the colon on
[[nodiscard]] HexRecord readRecord(std::string_view text);

/// The memory that records describe, byte by byte; what none of them wrote is not there.
class HexImage {
  public:
    void clear();
    /// Takes a record without fault.
    void take(const HexRecord& record);

    [[nodiscard]] const std::map<std::uint32_t, std::uint8_t>& bytes() const { return content; }

  private:
    std::map<std::uint32_t, std::uint8_t> content;
    /// Added to a record's own address.
    std::uint32_t base = 0;
    /// A segment's addresses wrap inside it, linear ones do not.
    bool segmented = false;
};

/// The image as text: up to 16 bytes a line, "0003F0: 02 33 7A", each run of bytes on lines of its own.
[[nodiscard]] std::string imageText(const HexImage& image);

} // namespace zor::sim
