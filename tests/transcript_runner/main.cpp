// SPDX-License-Identifier: MIT
#include "transcript_runner/runner.h"

#include <iostream>

int main(int count, char** arguments) {
    int passed = 0;
    int failed = 0;
    for (int at = 1; at < count; ++at) {
        ++(zor::testing::passes(arguments[at], std::cout) ? passed : failed);
    }
    std::cout << passed << " passed, " << failed << " failed\n";
    return passed > 0 && failed == 0 ? 0 : 1;
}
