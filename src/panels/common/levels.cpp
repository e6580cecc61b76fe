// SPDX-License-Identifier: MIT
#include "panels/common/levels.h"

#include "support/numbers.h"

namespace zor {

ShownNumber thresholdVoltage(std::int32_t threshold, const ThresholdTraits& traits) {
    return shownInFull((static_cast<double>(threshold) + traits.shownOffset) / 10);
}

VoltageCommit commitThresholdVoltage(std::string_view text, const ThresholdTraits& traits) {
    VoltageCommit commit;
    double volts = numericPrefix(text);
    if (volts < 0) {
        volts = 0;
        commit.limit = Limit::Minimum;
        commit.limitText = "0";
    } else if (volts > 5.3) {
        volts = 5.3;
        commit.limit = Limit::Maximum;
        commit.limitText = "5.3";
    }
    float tenths = static_cast<float>(volts) * 10.0F;
    commit.threshold = roundToInt(static_cast<double>(tenths)) - traits.typedOffset;
    return commit;
}

bool isCanonicalSupply(std::string_view text) {
    return !text.starts_with('-') && numberText(numericPrefix(text)) == text;
}

SupplyCommit commitSupply(std::string_view text) {
    SupplyCommit commit;
    double volts = roundTiesEven(numericPrefix(text) * 10) / 10;
    if (volts < 2.0) {
        volts = 2.0;
        commit.limit = Limit::Minimum;
    } else if (volts > 5.4) {
        volts = 5.4;
        commit.limit = Limit::Maximum;
    }
    commit.volts = shownInFull(volts);
    return commit;
}

ShownNumber milliamperes(std::int32_t reading) {
    return shownNumber((1023 - static_cast<double>(reading)) * 24.4 / 1000, 1);
}

ShownNumber microamperes(std::int32_t reading) {
    return shownInFull((1023 - static_cast<double>(reading)) * 48.8);
}

std::int32_t powerStep(std::string_view text) {
    return roundToInt(numericPrefix(text) / -3);
}

std::optional<int> powerCode(std::string_view text) {
    std::int32_t step = powerStep(text);
    return step >= 0 && step <= 7 ? std::optional<int>(step) : std::nullopt;
}

} // namespace zor
