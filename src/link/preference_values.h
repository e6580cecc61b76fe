// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zor {

/// What the user prefers. The first four are kept from run to run in ZOR.ini, the others last for the run.
struct PreferenceValues {
    /// First and last port of the search, decimal, as typed.
    std::string Commport_min = "1";
    std::string Commport_max = "8";
    /// 1: the workspace is opened at the start; a panel asks for its configuration as it opens.
    std::int32_t Pref_LoadWS = 0;
    std::int32_t Pref_CCautoLoad = 0;
    std::string Pref_OpalRevision = "'D' or above";
    std::string Pref_JadeRevision = "'A' or above";
    std::string Pref_AmberRevision = "'F' or above";
    std::int32_t Pref_RxLinkTimeout = 50;
    /// Supply of the radio board in V, as it was entered; its numeric prefix counts.
    std::string Pref_Voltage = "2.5";
    /// A board that was pulled out is taken up again as soon as its adapter is back. Kept in a file beside
    /// ZOR.ini.
    bool ReconnectByItself = false;
};

} // namespace zor
