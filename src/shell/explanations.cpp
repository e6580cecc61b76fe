// SPDX-License-Identifier: MIT
#include "shell/explanations.h"

#include "elements/range.h"
#include "panels/common/chip_panel.h"
#include "support/letters.h"

#include <algorithm>
#include <array>

namespace zor {

namespace {

std::string withoutIndex(const std::string& name) {
    return name.substr(0, name.find('('));
}

std::string span(const IntegerRange& range) {
    return std::to_string(range.minimum) + " to " + std::to_string(range.maximum);
}

/// The number fields that every panel has, with what a chip's traits say of them.
struct NumberRow {
    const char* name;
    IntegerRange (*range)(const PanelTraits&);
};
constexpr std::array numberRows = {
    NumberRow{"LBD", [](const PanelTraits& traits) { return traits.threshold.range; }},
    NumberRow{"WKUPM", [](const PanelTraits& traits) { return traits.wakeUp.mantissa; }},
    NumberRow{"WKUPR", [](const PanelTraits& traits) { return traits.wakeUp.exponent; }},
    NumberRow{"WKUPD", [](const PanelTraits& traits) { return traits.wakeUp.divisor; }},
    NumberRow{"DUTY", [](const PanelTraits&) { return dutyRange; }},
};

std::string frequencies(const ChipPanel& panel, int bandField) {
    return panel.frequencyText(static_cast<int>(minimumFrequencyCode), bandField) + " to " +
           panel.frequencyText(static_cast<int>(maximumFrequencyCode), bandField);
}

std::string numberRange(const ChipPanel& panel, const Element& element) {
    const PanelTraits& traits = panel.traits();
    for (const NumberRow& row : numberRows) {
        if (element.name() == row.name) {
            return span(row.range(traits));
        }
    }
    if (&element == &panel.LBDV) {
        return thresholdVoltage(traits.threshold.range.minimum, traits.threshold).text + " V to " +
               thresholdVoltage(traits.threshold.range.maximum, traits.threshold).text + " V";
    }
    if (&element == &panel.FreqCenter) {
        return frequencies(panel, panel.bandField());
    }
    for (Band which : traits.offeredBands) {
        if (&element == panel.band(which)) {
            return frequencies(panel, bandConstants(*traits.bands, which).code);
        }
    }
    return {};
}

/// "Bits 2:0 of Configuration Setting"
std::string placeOf(const BitField& field, const ControlWord& word) {
    std::string low = std::to_string(field.lowBit);
    return (field.highBit == field.lowBit ? "Bit " + low
                                          : "Bits " + std::to_string(field.highBit) + ":" + low) +
           " of " + word.title();
}

bool isQuantity(const std::string& text) {
    return !text.empty() && (isDigit(text.front()) || text.front() == '-' || text.front() == '+');
}

/// What an entry of the list means in the word, its unit with it.
std::string meaningOfEntry(const BitField& field, const CodeList& list, const std::string& entry) {
    int codes = 1 << (field.highBit - field.lowBit + 1);
    for (int code = 0; code < codes && field.meaningOf; ++code) {
        if (list.textOfCode(code) == entry) {
            return field.meaningOf(code);
        }
    }
    return entry;
}

/// From the first to the last entry, where they are quantities; words stand in the list to be read.
std::string listRange(const BitField& field, const CodeList& list) {
    if (list.entries().size() < 2 || !isQuantity(list.entries().back())) {
        return {};
    }
    return meaningOfEntry(field, list, list.entries().front()) + " to " +
           meaningOfEntry(field, list, list.entries().back());
}

std::string joined(const std::string& place, const std::string& range) {
    return place + (place.empty() || range.empty() ? "" : ": ") + range;
}

std::string rangeInPanel(const ChipPanel& panel, const Element& element) {
    for (const ControlWord* word : panel.words()) {
        for (const BitField& field : word->fields()) {
            if (field.source == &element) {
                const auto* list = dynamic_cast<const CodeList*>(&element);
                return joined(placeOf(field, *word),
                              list == nullptr ? std::string() : listRange(field, *list));
            }
        }
    }
    return numberRange(panel, element);
}

} // namespace

std::string purposeOf(const Element& element) {
    std::string name = withoutIndex(element.name());
    const char* row = purposeInTable(element.form().name() + "." + name);
    if (row == nullptr && dynamic_cast<const ChipPanel*>(&element.form()) != nullptr) {
        row = purposeInTable("panel." + name);
    }
    if (row == nullptr) {
        row = purposeInTable(name);
    }
    return row == nullptr ? std::string() : std::string(row);
}

std::string rangeOf(const Element& element) {
    if (const auto* slider = dynamic_cast<const Slider*>(&element)) {
        return span({slider->minimum(), slider->maximum()});
    }
    const auto* panel = dynamic_cast<const ChipPanel*>(&element.form());
    return panel == nullptr ? std::string() : rangeInPanel(*panel, element);
}

} // namespace zor
