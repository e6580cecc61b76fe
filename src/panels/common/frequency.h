// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/values.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zor {

enum class Band { Band315, Band433, Band868, Band915 };

/// What a band option sets. The centre frequency of the chips is
/// f = 10 MHz x multiplier x crystal ratio x (base + F / 4000).
struct BandConstants {
    std::int32_t multiplier = 1;
    /// Nothing: the option leaves the panel's base as it was.
    std::optional<std::int32_t> base;
    /// The band's field of the configuration word, 0 to 3.
    std::int32_t code = 0;
    /// Frequency step that is shown at crystal ratio 1, in kHz.
    double stepKilohertz = 0;
};

/// One row a band, in the order of Band.
using BandTable = std::array<BandConstants, 4>;

/// The bands of the five chips whose synthesizer multiplies by 1, 2 or 3.
inline constexpr BandTable multiplierBands = {{
    {1, 31, 0, 2.5},
    {1, 43, 1, 2.5},
    {2, 43, 2, 5.0},
    {3, 30, 3, 7.5},
}};

[[nodiscard]] constexpr const BandConstants& bandConstants(const BandTable& table, Band band) {
    return table[static_cast<std::size_t>(band)];
}

/// The order in which a typed frequency is divided down. It decides the last bit of the quotient, and with it
/// the side to which a frequency exactly between two steps falls.
enum class FrequencyForm {
    TenThenMultiplier, ///< f / 10 / multiplier / ratio
    EightThenTen,      ///< f / 8 / 10 / ratio, for a chip with the one multiplier 8
};

/// What a panel's frequency depends on at one moment.
struct FrequencyScale {
    FrequencyForm form = FrequencyForm::TenThenMultiplier;
    std::int32_t multiplier = 1;
    std::int32_t base = 31;
    /// Crystal frequency in MHz divided by 10; 0.8 to 1.2.
    float crystalRatio = 1.0F;
};

inline constexpr float minimumFrequencyCode = 96.0F;
inline constexpr float maximumFrequencyCode = 3903.0F;

/// Frequency parameter F of a centre frequency: nearest step, ties to even, computed in double precision.
/// @param megahertz  centre frequency as typed, any number; not clamped
/// @return F unclamped (beyond 1e9 it stays there, far outside every limit); a chip takes 96 to 3903
[[nodiscard]] float frequencyParameter(double megahertz, const FrequencyScale& scale);

/// Centre frequency in MHz of a frequency parameter, computed in double precision, not rounded.
[[nodiscard]] double centreFrequency(float frequencyCode, const FrequencyScale& scale);

/// A centre frequency as FreqCenter is written: first in full (15 digits), then that text rounded to 4
/// decimals of a MHz, which is what stays.
struct ShownFrequency {
    std::string fullText;
    ShownNumber megahertz;
};

[[nodiscard]] ShownFrequency shownFrequency(float frequencyCode, const FrequencyScale& scale);

/// What the commit of a centre frequency gives.
struct FrequencyCommit {
    /// F within 96 to 3903.
    float code = minimumFrequencyCode;
    Limit limit = Limit::None;
    ShownFrequency shown;
};

/// @param text  of FreqCenter; its numeric prefix counts, in MHz
[[nodiscard]] FrequencyCommit commitFrequency(std::string_view text, const FrequencyScale& scale);

/// The field of the frequency word, the rounded frequency parameter.
[[nodiscard]] std::int32_t frequencyField(float frequencyCode);

/// Frequency step in kHz as FreqStep shows it: the step at ratio 1 times the ratio, 4 decimals.
[[nodiscard]] ShownNumber frequencyStep(double stepKilohertz, float crystalRatio);

/// Frequency offset in kHz of a status byte's low bits, read as two's complement, times the step.
/// @param bits  width of the field, 1 to 8: 6 on the receivers, 5 on the transceivers
/// @param stepKilohertz  the number that FreqStep shows
[[nodiscard]] ShownNumber frequencyOffset(std::int32_t statusByte, int bits, double stepKilohertz);

/// What the commit of a crystal frequency gives.
struct CrystalCommit {
    /// Rounded to 6 decimals and clamped to 8 to 12 MHz.
    ShownNumber megahertz;
    Limit limit = Limit::None;
    /// The shown number divided by 10.
    float ratio = 1.0F;
};

/// @param megahertz  as typed, any number
[[nodiscard]] CrystalCommit commitCrystal(double megahertz);

/// Crystal frequency in Hz, nearest integer.
/// @param crystalRatio  0.8 to 1.2
[[nodiscard]] std::int32_t crystalHertz(float crystalRatio);

/// An entry of a list that scales with the crystal: the value kept and the text shown.
struct ScaledEntry {
    float value = 0;
    std::string text;

    bool operator==(const ScaledEntry&) const = default;
};

/// Clock outputs in MHz at crystal ratio 1.
inline constexpr std::array<double, 8> clockOutputs = {1, 1.25, 1.66, 2, 2.5, 3.33, 5, 10};

/// Each value times the ratio, rounded to 4 decimals and kept in single precision.
[[nodiscard]] std::vector<ScaledEntry> scaledList(std::span<const double> values, float crystalRatio);

} // namespace zor
