// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/control_word.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zor {

/// Bits of a wanted word that the settings do not give.
struct RefusedBits {
    /// The word's name in a sentence; empty for a setting outside the words.
    std::string word;
    /// "7:4", "3"
    std::string bits;
    std::string field;
    std::string asked;
    std::string possible;

    bool operator==(const RefusedBits&) const = default;
};

/// Words that are to be brought about, and the settings that do it: the words' tables read backwards. All
/// words are asked for first, since one setting may have bits in two of them.
class SettingsPlan {
  public:
    void ask(const ControlWord& word, std::uint32_t value);

    /// What no setting gives, by word and bit from the top; empty if all can be done.
    [[nodiscard]] std::vector<RefusedBits> refused() const;
    /// Puts the settings; those that give what they shall already are left alone. Only if nothing is refused.
    void carryOut() const;
    /// Behind it: what the settings beside one another did not leave standing.
    [[nodiscard]] std::vector<RefusedBits> missed() const;

  private:
    struct Ask {
        const ControlWord* word;
        std::uint32_t value;
    };
    /// A field, and the setting that a part of it wants.
    struct Source {
        const ControlWord* word;
        const BitField* field;
        int code;
    };
    struct Target {
        WordSetting setting;
        int number = 0;
        std::vector<Source> sources;
    };

    void want(const Source& source);
    static void addFixed(const Ask& ask, std::vector<RefusedBits>& rows);

    std::vector<Ask> asks;
    std::vector<Target> targets;
    /// Fields with bits that nothing stands behind just now.
    std::vector<Source> without;
};

/// Binary digits, the highest first.
[[nodiscard]] std::string binaryText(std::uint32_t value, int width);
/// A field's bits: "7:4", or "3" for one.
[[nodiscard]] std::string bitsText(int highBit, int lowBit);

} // namespace zor
