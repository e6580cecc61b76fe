// SPDX-License-Identifier: MIT
#pragma once

#include "panels/receivers/amber_v1.h"
#include "panels/receivers/beryl_v3.h"
#include "panels/receivers/coral.h"
#include "panels/receivers/frm_topaz.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"

#include <gtest/gtest.h>

namespace zor::testing {

/// Every chip's panel; what holds for all is tested on each of these.
using AllPanels = ::testing::Types<OpalV2, JadeV1, KT1102, AmberV1, Coral, BerylV3, FRM_Topaz>;

// Lets a test's name say which panel it ran on.
template <class Panel>
inline constexpr const char* panelName = "";
template <>
inline constexpr const char* panelName<OpalV2> = "OpalV2";
template <>
inline constexpr const char* panelName<JadeV1> = "JadeV1";
template <>
inline constexpr const char* panelName<KT1102> = "KT1102";
template <>
inline constexpr const char* panelName<AmberV1> = "AmberV1";
template <>
inline constexpr const char* panelName<Coral> = "Coral";
template <>
inline constexpr const char* panelName<BerylV3> = "BerylV3";
template <>
inline constexpr const char* panelName<FRM_Topaz> = "FRM_Topaz";

struct PanelNames {
    template <class Panel>
    static std::string GetName(int) {
        return panelName<Panel>;
    }
};

} // namespace zor::testing
