// SPDX-License-Identifier: MIT
#include "compare/panel_setter.h"

#include "compare/chip_kinds.h"
#include "compare/quiet_panel.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::uint32_t standardCrystal = 10'000'000;
constexpr std::uint32_t lowestCrystal = 8'000'000;
constexpr std::uint32_t highestCrystal = 12'000'000;

void putCrystal(ChipPanel& panel, std::uint32_t hertz, std::vector<RefusedBits>& refused) {
    if (hertz < lowestCrystal || hertz > highestCrystal) {
        refused.push_back({"", "", "crystal", std::to_string(hertz) + " Hz",
                           std::to_string(lowestCrystal) + " to " + std::to_string(highestCrystal) + " Hz"});
    } else if (shownCrystal(panel) == hertz) {
        return;
    } else if (hertz == standardCrystal) {
        panel.StdCrystal.choose();
    } else {
        panel.Crystalfreq.setText(numberText(hertz / 1e6));
        // Its action reads the field.
        panel.NonStdCrystal.choose();
    }
}

void putRevision(ChipPanel& panel, const std::string& revision, std::vector<RefusedBits>& refused) {
    // A variant that comes in one revision shows no list.
    if (revision.empty() || !panel.Revision.visible() || panel.Revision.text() == revision) {
        return;
    }
    if (panel.Revision.find(revision) >= 0) {
        panel.Revision.selectText(revision);
        return;
    }
    std::string all;
    for (const std::string& entry : panel.Revision.entries()) {
        all += (all.empty() ? "" : ", ") + entry;
    }
    refused.push_back({"", "", "revision", revision, all});
}

const ControlWord* wordNamed(const ChipPanel& panel, const std::string& name) {
    auto found = std::find_if(panel.words().begin(), panel.words().end(),
                              [&name](const ControlWord* word) { return word->name() == name; });
    return found == panel.words().end() ? nullptr : *found;
}

/// Puts all that is wanted; a panel that refuses is left half way.
std::vector<RefusedBits> put(ChipPanel& panel, const WantedSettings& wanted) {
    std::vector<RefusedBits> refused;
    putRevision(panel, wanted.revision, refused);
    if (wanted.crystal) {
        putCrystal(panel, *wanted.crystal, refused);
    }
    // The revision has declared the words anew, and the crystal has rebuilt the lists.
    std::optional<int> band = bandOf(panel, wanted.words);
    bool stays = band && *band == panel.bandField();
    bool calibrationDue = panel.LabelCalibration.visible();
    if (band) {
        forgetBandBefore(panel);
    }
    SettingsPlan plan;
    for (const auto& [name, value] : wanted.words) {
        if (const ControlWord* word = wordNamed(panel, name)) {
            plan.ask(*word, value);
        }
    }
    for (RefusedBits& row : plan.refused()) {
        refused.push_back(std::move(row));
    }
    if (!refused.empty()) {
        return refused;
    }
    plan.carryOut();
    if (stays) {
        panel.LabelCalibration.setVisible(calibrationDue);
    }
    return plan.missed();
}

/// The chip's name without the mark of its variant.
std::string chipOf(const std::string& device) {
    return device.ends_with('B') ? device.substr(0, device.size() - 1) : device;
}

} // namespace

std::optional<int> bandOf(const ChipPanel& panel, const WordValues& words) {
    const Element* options = panel.band(panel.traits().offeredBands.front());
    auto isBand = [options](const BitField& field) {
        return std::ranges::any_of(
            field.parts, [options](const FieldPart& part) { return part.setting.element == options; });
    };
    for (const auto& [name, value] : words) {
        if (const ControlWord* word = wordNamed(panel, name)) {
            auto field = std::ranges::find_if(word->fields(), isBand);
            if (field != word->fields().end()) {
                return ControlWord::part(value, *field);
            }
        }
    }
    return std::nullopt;
}

std::uint32_t shownCrystal(const ChipPanel& panel) {
    return panel.StdCrystal.chosen()
               ? standardCrystal
               : static_cast<std::uint32_t>(roundToInt(numericPrefix(panel.Crystalfreq.text()) * 1e6));
}

std::vector<RefusedBits> setPanel(const Bench& bench, ChipPanel& panel, const WantedSettings& wanted) {
    if (panel.readingStatus()) {
        throw ToolError(invalidCall, "A status read is under way");
    }
    QuietPanel trial(bench, panel);
    trial.take(panel);
    std::vector<RefusedBits> refused = put(trial.panel(), wanted);
    return refused.empty() ? put(panel, wanted) : refused;
}

WantedByHeader wantedByHeader(const ChipPanel& panel, std::string_view text) {
    const ChipKind& kind = kindOf(panel);
    HeaderBlocks blocks = kind.blocks(panel);
    HeaderVocabulary vocabulary;
    for (const HeaderBlock& block : blocks) {
        vocabulary.commands.emplace_back(block.command);
    }
    for (const ChipKind& row : chipKinds()) {
        vocabulary.devices.emplace_back(row.device);
        if (row.variant != nullptr) {
            vocabulary.devices.emplace_back(row.variant);
        }
    }
    HeaderContent content = readHeader(text, vocabulary);
    if (!content.device.empty() && chipOf(content.device) != kind.device) {
        throw HeaderFault("Line " + std::to_string(content.deviceLine) + ": the header is the " +
                          content.device + "'s, the panel the " + panel.chip() + "'s.");
    }
    WantedByHeader wanted;
    wanted.foreign = std::move(content.foreign);
    wanted.settings.revision = content.revision;
    if (content.crystal) {
        wanted.settings.crystal = content.crystal->value;
    }
    for (const HeaderContent::Macro& macro : content.macros) {
        for (const HeaderBlock& block : blocks) {
            if (macro.command == block.command && block.word.element != nullptr) {
                wanted.settings.words.emplace_back(block.word.element->name(), macro.value);
            }
        }
    }
    return wanted;
}

} // namespace zor
