// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zor {

class ChipPanel;
class ControlWord;
struct WantedSettings;

/// A field of a word on one side of a comparison.
struct FieldState {
    int highBit = 0;
    int lowBit = 0;
    std::string name;
    int code = 0;
    std::string meaning;
};

struct WordState {
    /// The word's element.
    std::string name;
    std::string title;
    std::uint32_t value = 0;
    std::vector<FieldState> fields;
};

/// A setting that stands in no word, with its value as a person reads it.
enum class OwnSetting { Crystal, Revision, Supply, Timeout };
[[nodiscard]] const char* nameOf(OwnSetting setting);

/// What one side of a comparison has. A side that does not know a word or a setting leaves it out.
struct PanelState {
    std::vector<WordState> words;
    std::vector<std::pair<OwnSetting, std::string>> settings;
};

/// The panel as it stands.
[[nodiscard]] PanelState shownState(const ChipPanel& panel, const Bench& bench);
/// What the chip was sent and has acknowledged.
[[nodiscard]] PanelState sentState(const ChipPanel& panel);
/// What a header or another source wants of the panel, told in the panel's own terms.
[[nodiscard]] PanelState wantedState(const ChipPanel& panel, const WantedSettings& wanted);

/// What differs between two sides; a side without it has an empty text.
struct Difference {
    enum class Kind { Word, Field, Setting };
    Kind kind = Kind::Word;
    /// The word's element; empty for a setting outside the words.
    std::string word;
    std::string title;
    int highBit = 0;
    int lowBit = 0;
    OwnSetting setting = OwnSetting::Crystal;
    std::string name;
    std::string left;
    std::string right;
    /// The field's bits, or the whole word.
    std::uint32_t leftCode = 0;
    std::uint32_t rightCode = 0;
    /// The side has it.
    bool inLeft = true;
    bool inRight = true;
};

/// Only what both sides know and have otherwise: a row for each word, behind it one for each of its fields;
/// the settings in no word come first.
[[nodiscard]] std::vector<Difference> differences(const PanelState& left, const PanelState& right);

/// Words that one of them knows and the other does not.
[[nodiscard]] std::size_t unknownWords(const PanelState& left, const PanelState& right);

} // namespace zor
