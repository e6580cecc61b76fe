// SPDX-License-Identifier: MIT
#include "fuzz/configuration_harness.h"
#include "panels/receivers/frm_topaz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return zor::testing::readAnyConfiguration<zor::FRM_Topaz>(data, size);
}
