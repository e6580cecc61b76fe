// SPDX-License-Identifier: MIT
#include "rftools/tx_search_chips.h"

#include "panels/common/chip_panel.h"

#include <algorithm>

namespace zor {

namespace {

/// @param digitalFilter  the filter's code that lets the clock recovery work
std::vector<FieldSetting> listening(std::vector<FieldSetting> power, int digitalFilter) {
    std::vector<FieldSetting> all = {
        {"Dutyw", "low duty-cycle", 0},
        {"Datafiltw", "clock recovery", 1}, // fast
        {"Datafiltw", "filter", digitalFilter},
        // The whole range of the offset, and none of one carrier kept for the next.
        {"AFCw", "mode", 2},
        {"AFCw", "range", 0},
        {"AFCw", "strobe", 0},
        {"AFCw", "output", 1},
        {"AFCw", "enable", 0},
    };
    all.insert(all.end(), power.begin(), power.end());
    return all;
}

const std::vector<FieldSetting> receiverPower = {{"Ctrlw", "oscillator", 1}, {"Recw", "receiver chain", 1}};
const std::vector<FieldSetting> transceiverPower = {{"PowerW", "receiver", 1},
                                                    {"PowerW", "baseband", 1},
                                                    {"PowerW", "transmitter", 0},
                                                    {"PowerW", "synthesizer", 1},
                                                    {"PowerW", "oscillator", 1}};
const std::vector<FieldSetting> receiverStart = {{"Recw", "receiver chain", 0}};
const std::vector<FieldSetting> transceiverStart = {{"PowerW", "receiver", 0}, {"PowerW", "synthesizer", 0}};

} // namespace

const std::vector<SearchChip>& searchChips() {
    // clang-format off
    static const std::vector<SearchChip> rows = {
        // panel       revision          DRSSI   CRL     offset stops
        {"AmberV1",   "'E' or below",   {0, 1}, {1, 7}, 0,     1, listening(receiverPower, 1),    receiverStart},
        {"AmberV1",   nullptr,          {0, 2}, {0, 0}, 6,     1, listening(receiverPower, 1),    receiverStart},
        {"Coral",     nullptr,          {0, 2}, {0, 0}, 6,     1, listening(receiverPower, 0),    receiverStart},
        {"BerylV3",   nullptr,          {0, 0}, {1, 6}, 5,     2, listening(transceiverPower, 1), transceiverStart},
        {"FRM_Topaz", nullptr,          {0, 0}, {1, 6}, 5,     2, listening(transceiverPower, 1), transceiverStart},
    };
    // clang-format on
    return rows;
}

const SearchChip* searchChip(const ChipPanel& panel) {
    const std::vector<SearchChip>& rows = searchChips();
    auto row = std::find_if(rows.begin(), rows.end(), [&panel](const SearchChip& chip) {
        return panel.name() == chip.panel &&
               (chip.revision == nullptr || panel.Revision.text() == chip.revision);
    });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace zor
