// SPDX-License-Identifier: MIT
#include "compare/panel_state.h"

#include "compare/chip_kinds.h"
#include "compare/panel_setter.h"
#include "panels/common/chip_panel.h"
#include "panels/common/settings_plan.h"
#include "support/numbers.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zor {

namespace {

std::string crystalText(std::uint32_t hertz) {
    return numberText(hertz / 1e6) + " MHz";
}

/// What a field's code means where the panel does not show it just now.
std::string meaningOf(const BitField& field, int code) {
    if (field.kind == BitField::Kind::Tick) {
        return code != 0 ? "on" : "off";
    }
    return field.meaningOf ? field.meaningOf(code) : std::to_string(code);
}

/// @param shown  the value is what the panel's settings give
WordState stateOf(const ControlWord& word, std::uint32_t value, bool shown) {
    WordState state{word.name(), word.title(), value, {}};
    state.fields.reserve(word.fields().size());
    for (const BitField& field : word.fields()) {
        if (field.kind == BitField::Kind::AlwaysOne) {
            continue;
        }
        int code = ControlWord::part(value, field);
        state.fields.push_back({field.highBit, field.lowBit, field.name, code,
                                shown && field.meaning ? field.meaning() : meaningOf(field, code)});
    }
    return state;
}

const WordState* find(const PanelState& state, const std::string& word) {
    auto found = std::find_if(state.words.begin(), state.words.end(),
                              [&word](const WordState& candidate) { return candidate.name == word; });
    return found == state.words.end() ? nullptr : &*found;
}

/// What a frequency is the band beside it says; the panel's own may be another.
void tellFrequency(const ChipPanel& panel, PanelState& state) {
    WordValues values;
    for (const WordState& word : state.words) {
        values.emplace_back(word.name, word.value);
    }
    auto frequency = std::ranges::find(state.words, panel.Freqw.name(), &WordState::name);
    if (std::optional<int> band = bandOf(panel, values); band && frequency != state.words.end()) {
        for (FieldState& field : frequency->fields) {
            field.meaning = panel.frequencyText(field.code, *band);
        }
    }
}

const FieldState* find(const WordState& state, const FieldState& like) {
    auto found = std::find_if(state.fields.begin(), state.fields.end(), [&like](const FieldState& field) {
        return field.highBit == like.highBit && field.lowBit == like.lowBit && field.name == like.name;
    });
    return found == state.fields.end() ? nullptr : &*found;
}

std::string fieldText(const FieldState& field) {
    std::string text = binaryText(static_cast<std::uint32_t>(field.code), field.highBit - field.lowBit + 1);
    // A number says no more in words than in digits, but it is easier to read.
    return field.meaning.empty() ? text : text + "  " + field.meaning;
}

Difference rowOf(const WordState& word, const FieldState* left, const FieldState* right) {
    const FieldState& either = left != nullptr ? *left : *right;
    Difference row;
    row.kind = Difference::Kind::Field;
    row.word = word.name;
    row.title = word.title;
    row.highBit = either.highBit;
    row.lowBit = either.lowBit;
    row.name = either.name;
    row.inLeft = left != nullptr;
    row.inRight = right != nullptr;
    if (left != nullptr) {
        row.left = fieldText(*left);
        row.leftCode = static_cast<std::uint32_t>(left->code);
    }
    if (right != nullptr) {
        row.right = fieldText(*right);
        row.rightCode = static_cast<std::uint32_t>(right->code);
    }
    return row;
}

void addFields(const WordState& left, const WordState& right, std::vector<Difference>& rows) {
    for (const FieldState& field : left.fields) {
        const FieldState* other = find(right, field);
        if (other == nullptr || other->code != field.code) {
            rows.push_back(rowOf(left, &field, other));
        }
    }
    // Another generation of the chip lays a word out in its own fields.
    for (const FieldState& field : right.fields) {
        if (find(left, field) == nullptr) {
            rows.push_back(rowOf(right, nullptr, &field));
        }
    }
}

} // namespace

const char* nameOf(OwnSetting setting) {
    switch (setting) {
    case OwnSetting::Crystal:
        return "crystal";
    case OwnSetting::Revision:
        return "revision";
    case OwnSetting::Supply:
        return "supply voltage";
    case OwnSetting::Timeout:
        return "receiver link time-out";
    }
    return "";
}

PanelState shownState(const ChipPanel& panel, const Bench& bench) {
    PanelState state;
    state.settings.emplace_back(OwnSetting::Crystal, crystalText(shownCrystal(panel)));
    if (panel.Revision.visible()) {
        state.settings.emplace_back(OwnSetting::Revision, panel.Revision.text());
    }
    state.settings.emplace_back(OwnSetting::Supply, bench.preferences.Pref_Voltage);
    if (kindOf(panel).keepsTimeout) {
        state.settings.emplace_back(OwnSetting::Timeout,
                                    std::to_string(bench.preferences.Pref_RxLinkTimeout));
    }
    state.words.reserve(panel.words().size());
    for (const ControlWord* word : panel.words()) {
        state.words.push_back(stateOf(*word, word->value(), true));
    }
    return state;
}

PanelState sentState(const ChipPanel& panel) {
    PanelState state;
    for (const ControlWord* word : panel.words()) {
        if (std::optional<std::uint32_t> value = readHex(word->lastSent())) {
            state.words.push_back(stateOf(*word, *value, false));
        }
    }
    tellFrequency(panel, state);
    return state;
}

PanelState wantedState(const ChipPanel& panel, const WantedSettings& wanted) {
    PanelState state;
    if (wanted.crystal) {
        state.settings.emplace_back(OwnSetting::Crystal, crystalText(*wanted.crystal));
    }
    if (!wanted.revision.empty()) {
        state.settings.emplace_back(OwnSetting::Revision, wanted.revision);
    }
    for (const ControlWord* word : panel.words()) {
        for (const auto& [name, value] : wanted.words) {
            if (name == word->name()) {
                state.words.push_back(stateOf(*word, value, false));
            }
        }
    }
    tellFrequency(panel, state);
    return state;
}

std::vector<Difference> differences(const PanelState& left, const PanelState& right) {
    std::vector<Difference> rows;
    for (const auto& [setting, value] : left.settings) {
        for (const auto& [other, otherValue] : right.settings) {
            if (other == setting && otherValue != value) {
                Difference row;
                row.kind = Difference::Kind::Setting;
                row.setting = setting;
                row.name = nameOf(setting);
                row.left = value;
                row.right = otherValue;
                rows.push_back(std::move(row));
            }
        }
    }
    for (const WordState& word : left.words) {
        const WordState* other = find(right, word.name);
        if (other == nullptr || other->value == word.value) {
            continue;
        }
        Difference row;
        row.word = word.name;
        row.title = word.title;
        row.left = hexText(word.value);
        row.right = hexText(other->value);
        row.leftCode = word.value;
        row.rightCode = other->value;
        rows.push_back(std::move(row));
        addFields(word, *other, rows);
    }
    return rows;
}

std::size_t unknownWords(const PanelState& left, const PanelState& right) {
    auto lacking = [](const PanelState& one, const PanelState& other) {
        return static_cast<std::size_t>(
            std::count_if(one.words.begin(), one.words.end(),
                          [&other](const WordState& word) { return find(other, word.name) == nullptr; }));
    };
    return lacking(left, right) + lacking(right, left);
}

} // namespace zor
