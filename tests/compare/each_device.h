// SPDX-License-Identifier: MIT
#pragma once

#include "compare/devices.h"

#include <gtest/gtest.h>

#include <string>

namespace zor::testing {

/// A test that runs on each device.
class OnEachDevice : public ::testing::TestWithParam<Device> {};

/// What its instance is called: "KT1100B".
struct DeviceName {
    std::string operator()(const ::testing::TestParamInfo<Device>& row) const { return row.param.name; }
};

} // namespace zor::testing
