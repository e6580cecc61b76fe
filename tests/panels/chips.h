// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/frequency.h"

#include <array>
#include <cstdint>

namespace zor::chips {

/// The bands of the chips, written out once more, so that a slip in a table shows. One that two chips share
/// stands once.
struct BandRow {
    const char* name;
    FrequencyForm form;
    std::int32_t multiplier;
    std::int32_t base;
    double stepKilohertz;
};

inline constexpr std::array<BandRow, 9> bands = {{
    {"315, multiplier 1", FrequencyForm::TenThenMultiplier, 1, 31, 2.5},
    {"433, multiplier 1", FrequencyForm::TenThenMultiplier, 1, 43, 2.5},
    {"868, multiplier 2", FrequencyForm::TenThenMultiplier, 2, 43, 5},
    {"915, multiplier 3", FrequencyForm::TenThenMultiplier, 3, 30, 7.5},
    {"868, transmitter with FIFO", FrequencyForm::TenThenMultiplier, 8, 10, 20},
    {"915, transmitter with FIFO", FrequencyForm::TenThenMultiplier, 8, 11, 20},
    {"433, receiver without multiplier", FrequencyForm::EightThenTen, 8, 9, 20},
    {"868, receiver without multiplier", FrequencyForm::EightThenTen, 8, 10, 20},
    {"915, receiver without multiplier", FrequencyForm::EightThenTen, 8, 11, 20},
}};

/// Crystals of 10, 8, 12, 11.25 and 9.999871 MHz. The fourth is one at which decimals end in a true 5.
inline constexpr std::array<float, 5> crystalRatios = {1.0F, 0.8F, 1.2F, 1.125F, 0.9999871F};

} // namespace zor::chips
