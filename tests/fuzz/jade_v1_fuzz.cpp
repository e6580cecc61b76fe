// SPDX-License-Identifier: MIT
#include "fuzz/configuration_harness.h"
#include "panels/transmitters/jade_v1.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return zor::testing::readAnyConfiguration<zor::JadeV1>(data, size);
}
