// SPDX-License-Identifier: MIT
#include "panels/common/values.h"

#include "support/numbers.h"

#include <utility>

namespace zor {

ShownNumber shownNumber(double value, int decimals) {
    double rounded = roundToDecimals(value, decimals);
    return {rounded, numberText(rounded)};
}

ShownNumber shownInFull(double value) {
    std::string text = numberText(value);
    double shown = numericPrefix(text);
    return {shown, std::move(text)};
}

std::int32_t committedInteger(std::string_view text, IntegerRange range) {
    return range.clamp(roundToInt(numericPrefix(text)));
}

} // namespace zor
