// SPDX-License-Identifier: MIT
#include "panels/common/forecast_chips.h"

#include <algorithm>

namespace zor {

namespace {

using Kind = ChipState::Kind;

// Every state is measured with the clock output off and the low battery detector off; each row's bits are
// those of the panels' own word tables.

/// The manual bits of a transmitter's power management; the automatic ones count where it has them.
std::vector<ChipState> transmitterStates(std::uint32_t automaticChain, std::uint32_t automaticAmplifier) {
    const char* word = "PowerMw";
    return {
        {Kind::Sleep, word, 0, {{word, 0xFF, 0x01}}},
        {Kind::WakeUpTimer, word, 0x02, {{word, 0xFF, 0x03}}},
        {Kind::Crystal, word, 0x20 | automaticChain, {{word, 0xFF, 0x21}}},
        {Kind::Synthesizer, word, 0x10 | automaticChain, {{word, 0xFF, 0x31}}},
        {Kind::Transmit, word, 0x08 | automaticAmplifier, {{word, 0xFF, 0x39}}},
    };
}

std::vector<ChipState> receiverStates() {
    const char* word = "Ctrlw";
    constexpr std::uint32_t power = 0x0701;
    WordBits off{"Recw", 0x01, 0x00};
    return {
        {Kind::Sleep, word, 0, {off, {word, power, 0x0001}}},
        {Kind::WakeUpTimer, word, 0x0200, {off, {word, power, 0x0201}}},
        {Kind::Crystal, word, 0x0100, {off, {word, power, 0x0101}}},
        {Kind::Receive, "Recw", 0x01, {{word, power, 0x0101}, {"Recw", 0x01, 0x01}}},
    };
}

std::vector<ChipState> transceiverStates() {
    const char* word = "PowerW";
    return {
        {Kind::Sleep, word, 0, {{word, 0xFF, 0x01}}},
        {Kind::WakeUpTimer, word, 0x02, {{word, 0xFF, 0x03}}},
        {Kind::Crystal, word, 0x08, {{word, 0xFF, 0x09}}},
        {Kind::Synthesizer, word, 0x10, {{word, 0xFF, 0x19}}},
        {Kind::Receive, word, 0x80, {{word, 0xFF, 0xC9}}},
        {Kind::Transmit, word, 0x20, {{word, 0xFF, 0x29}}},
    };
}

ForecastChip transmitter(const char* panel) {
    return {.panel = panel,
            .deviation = "ModFreq",
            .keying = "Modulation",
            .power = "OutputPower",
            // Steady carriers: the keying bit goes with the power's.
            .powerBits = {"OutPowerw", 0x0F, 0},
            .wakeUpTick = "pm1",
            .states = transmitterStates(0x80, 0x40)};
}

ForecastChip receiver(const char* panel) {
    return {.panel = panel,
            .rate = "DATARATE",
            .bandwidth = "BasebandBW",
            .wakeUpTick = "ent",
            .dutyTick = "enlowdc",
            .dutyPercent = "DUTY_CALC",
            .states = receiverStates()};
}

ForecastChip transceiver(const char* panel) {
    return {.panel = panel,
            .deviation = "ModFreq",
            .rate = "DATARATE",
            .bandwidth = "BasebandBW",
            .power = "OutputPower",
            .powerBits = {"TXCtrlw", 0x07, 0},
            .wakeUpTick = "chb_ew",
            .dutyTick = "enlowdc",
            .dutyPercent = "DUTY_CALC",
            .states = transceiverStates()};
}

std::vector<ForecastChip> makeChips() {
    ForecastChip jade = transmitter("JadeV1");
    jade.rate = "DATARATE";
    ForecastChip onyx = transmitter("KT1102");
    onyx.keying = nullptr;
    onyx.rate = "TB_DataRateValue";
    onyx.powerBits = {"Ctrlw", 0x0700, 0};
    onyx.powerShift = 8;
    onyx.wakeUpDivisor = "WKUPD";
    onyx.states = transmitterStates(0, 0);
    ForecastChip coral = receiver("Coral");
    coral.wakeUpDivisor = "WKUPD";
    return {transmitter("OpalV2"),   jade, onyx, receiver("AmberV1"), coral, transceiver("BerylV3"),
            transceiver("FRM_Topaz")};
}

} // namespace

const std::vector<ForecastChip>& forecastChips() {
    static const std::vector<ForecastChip> chips = makeChips();
    return chips;
}

const ForecastChip* findForecastChip(std::string_view panel) {
    const auto& chips = forecastChips();
    auto found = std::find_if(chips.begin(), chips.end(),
                              [panel](const ForecastChip& chip) { return panel == chip.panel; });
    return found == chips.end() ? nullptr : &*found;
}

std::string stateName(ChipState::Kind kind, std::string_view power) {
    switch (kind) {
    case Kind::Sleep:
        return "sleep";
    case Kind::WakeUpTimer:
        return "wake-up timer";
    case Kind::Crystal:
        return "crystal";
    case Kind::Synthesizer:
        return "synthesizer";
    case Kind::Receive:
        return "receive";
    case Kind::Transmit:
        return "transmit " + std::string(power);
    }
    return {};
}

} // namespace zor
