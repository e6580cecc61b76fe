// SPDX-License-Identifier: MIT
#include "fuzz/configuration_harness.h"
#include "panels/receivers/beryl_v3.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return zor::testing::readAnyConfiguration<zor::BerylV3>(data, size);
}
