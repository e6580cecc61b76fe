// SPDX-License-Identifier: MIT
#include "panels/common/values.h"

#include "support/numbers.h"

namespace zor {

ShownNumber shownNumber(double value, int decimals) {
    double rounded = roundToDecimals(value, decimals);
    return {rounded, numberText(rounded)};
}

std::int32_t committedInteger(std::string_view text, IntegerRange range) {
    return range.clamp(roundToInt(numericPrefix(text)));
}

} // namespace zor
