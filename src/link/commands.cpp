// SPDX-License-Identifier: MIT
#include "link/commands.h"

#include "support/error.h"
#include "support/numbers.h"

namespace zor {

double supplyConstant(int loadBoardRev) {
    return loadBoardRev == 1 ? 311 : 309;
}

std::string supplyCommand(double volts, double constant) {
    if (volts == 0) {
        throw ToolError(divisionByZero);
    }
    int code = roundToInt(255 - constant / volts);
    if (code < 0 || code > 255) {
        throw ToolError(overflow);
    }
    return "V" + hexText(static_cast<std::uint32_t>(code)) + "\r";
}

} // namespace zor
