// SPDX-License-Identifier: MIT
// What a search for transmitters knows of the receiving chips, one row a chip.
#pragma once

#include <cstdint>
#include <vector>

namespace zor {

class ChipPanel;

/// A bit of the status read.
struct StatusBit {
    std::size_t byte = 0; // 0 the first
    int bit = 0;          // 0 the lowest
};

/// A field of a word, both by the names of the panel's tables, and what it shall be.
struct FieldSetting {
    const char* word;
    const char* field;
    int code;
};

/// A receiving chip, or a generation of one.
struct SearchChip {
    /// Its panel's form.
    const char* panel;
    /// The entry of the panel's revision list; nullptr for every other one.
    const char* revision;

    StatusBit signal; // DRSSI
    StatusBit clock;  // CRL
    /// Width of the signed frequency offset in the second byte; 0 where none is told.
    int offsetBits;
    /// How often the word that stops the frequency control goes out in front of a reading.
    int controlStops;

    /// What listening takes beside the panel's settings.
    std::vector<FieldSetting> listening;
    /// The fields, of one word, that start the receiver: off and on again, and the synthesizer calibrates.
    std::vector<FieldSetting> start;
};

[[nodiscard]] const std::vector<SearchChip>& searchChips();
/// The row of the panel's chip as its revision list stands; nullptr for a chip that does not receive.
[[nodiscard]] const SearchChip* searchChip(const ChipPanel& panel);

} // namespace zor
