// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace zor {

/// True while the window is open.
struct WindowSwitches {
    bool TX0on = false;
    bool TX1on = false;
    bool TX2on = false;
    bool RXon = false;
    bool RX1on = false;
    bool TRXon = false;
    bool TRX1on = false;
    bool EEPROMon = false;
    bool Terminalon = false;
    bool RxLinkOn = false;
    bool RxLinkOn_LB2 = false;
    bool TRxLinkOn = false;
    bool OpalV2testOn = false;
    bool VireoMacSnifferOn = false;
    bool PowerSupplyOn = false;
    bool CWLinkRXOn = false;
    bool CWLinkTXOn = false;
    bool FirmLoadOn = false;
    bool SplashOn = false;
};

/// What windows remember of the user's choices. The chip buttons' key of the last choice of their class is
/// empty before the first.
struct Selections {
    std::string SelectedTx;
    std::string SelectedRx;
    std::string SelectedTrx;
    /// The command editor was first opened without the KT1101's panel; nothing before it was opened. It lasts
    /// for the program's run.
    std::optional<bool> ForOpal;
};

} // namespace zor
