// SPDX-License-Identifier: MIT
#include "fuzz/configuration_harness.h"
#include "panels/transmitters/opal_v2.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return zor::testing::readAnyConfiguration<zor::OpalV2>(data, size);
}
