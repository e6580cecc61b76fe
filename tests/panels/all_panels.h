// SPDX-License-Identifier: MIT
#pragma once

#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"

#include <gtest/gtest.h>

namespace zor::testing {

/// Every chip's panel; what holds for all is tested on each of these.
using AllPanels = ::testing::Types<OpalV2, JadeV1, KT1102>;

/// Lets a test's name say which panel it ran on.
struct PanelNames {
    template <class Panel>
    static std::string GetName(int) {
        if constexpr (std::is_same_v<Panel, OpalV2>) {
            return "OpalV2";
        } else if constexpr (std::is_same_v<Panel, JadeV1>) {
            return "JadeV1";
        } else {
            return "KT1102";
        }
    }
};

} // namespace zor::testing
