// SPDX-License-Identifier: MIT
#include "panels/common/frequency.h"

#include "support/numbers.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// Far outside every limit, and still within what a single-precision number takes.
constexpr double beyondEveryCode = 1e9;

ScaledEntry scaledEntry(double value, float crystalRatio) {
    auto kept = static_cast<float>(roundToDecimals(value * static_cast<double>(crystalRatio), 4));
    return {kept, numberText(kept)};
}

} // namespace

float frequencyParameter(double megahertz, const FrequencyScale& scale) {
    double ratio = scale.crystalRatio;
    double quotient = scale.form == FrequencyForm::EightThenTen ? megahertz / 8 / 10 / ratio
                                                                : megahertz / 10 / scale.multiplier / ratio;
    double code = roundTiesEven((quotient - scale.base) * 4000);
    return static_cast<float>(std::clamp(code, -beyondEveryCode, beyondEveryCode));
}

double centreFrequency(float frequencyCode, const FrequencyScale& scale) {
    double code = frequencyCode;
    double ratio = scale.crystalRatio;
    return (code / 4000 + scale.base) * (scale.multiplier * 10) * ratio;
}

ShownFrequency shownFrequency(float frequencyCode, const FrequencyScale& scale) {
    std::string full = numberText(centreFrequency(frequencyCode, scale));
    ShownNumber rounded = shownNumber(numericPrefix(full), 4);
    return {std::move(full), std::move(rounded)};
}

FrequencyCommit commitFrequency(std::string_view text, const FrequencyScale& scale) {
    FrequencyCommit commit;
    commit.code = frequencyParameter(numericPrefix(text), scale);
    if (commit.code < minimumFrequencyCode) {
        commit.code = minimumFrequencyCode;
        commit.limit = Limit::Minimum;
    } else if (commit.code > maximumFrequencyCode) {
        commit.code = maximumFrequencyCode;
        commit.limit = Limit::Maximum;
    }
    commit.shown = shownFrequency(commit.code, scale);
    return commit;
}

std::int32_t frequencyField(float frequencyCode) {
    return roundToInt(static_cast<double>(frequencyCode));
}

ShownNumber frequencyStep(double stepKilohertz, float crystalRatio) {
    return shownNumber(stepKilohertz * static_cast<double>(crystalRatio), 4);
}

ShownNumber frequencyOffset(std::int32_t statusByte, int bits, double stepKilohertz) {
    std::int32_t span = 1 << bits;
    std::int32_t steps = statusByte & (span - 1);
    if (steps >= span / 2) {
        steps -= span;
    }
    return shownInFull(steps * stepKilohertz);
}

CrystalCommit commitCrystal(double megahertz) {
    CrystalCommit commit;
    double rounded = roundToDecimals(megahertz, 6);
    if (rounded < 8) {
        rounded = 8;
        commit.limit = Limit::Minimum;
    } else if (rounded > 12) {
        rounded = 12;
        commit.limit = Limit::Maximum;
    }
    commit.megahertz = shownInFull(rounded);
    commit.ratio = static_cast<float>(rounded / 10);
    return commit;
}

std::int32_t crystalHertz(float crystalRatio) {
    return roundToInt(static_cast<double>(crystalRatio) * 1e7);
}

std::vector<ScaledEntry> scaledList(std::span<const double> values, float crystalRatio) {
    std::vector<ScaledEntry> entries;
    entries.reserve(values.size());
    for (double value : values) {
        entries.push_back(scaledEntry(value, crystalRatio));
    }
    return entries;
}

} // namespace zor
