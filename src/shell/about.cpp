// SPDX-License-Identifier: MIT
#include "shell/about.h"

namespace zor {

std::string productVersion() {
    return ZOR_VERSION;
}

Splash::Splash(Bench& ownBench)
    : Form(ownBench.desk, "frm_Splash", productTitle)
    , Picture1(*this, "Picture1")
    , lblVersion(*this, "lblVersion", "GUI Version " + productVersion() + " Build 20/04/2007")
    , bench(ownBench) {
    setExtent({4500, 7500});
    auto vanish = [this] { close(); };
    onClick = vanish;
    Picture1.onClick = vanish;
    lblVersion.onClick = vanish;
    bench.windows.SplashOn = true;
}

void Splash::unload() {
    bench.windows.SplashOn = false;
}

About::About(Bench& ownBench)
    : Form(ownBench.desk, "frmAbout", std::string("About ") + productTitle, Kind::Modal)
    , picIcon(*this, "picIcon")
    , lblTitle(*this, "lblTitle", productTitle)
    , lblVersion(*this, "lblVersion", "Version " + productVersion())
    , lblDescription(
          *this, "lblDescription",
          "Desktop bench tool for sub-gigahertz ISM-band transmitters, receivers and transceivers.")
    , cmdOK(*this, "cmdOK", "OK")
    , cmdSysInfo(*this, "cmdSysInfo", "&System Info...")
    , bench(ownBench) {
    setExtent({3600, 6600});
    cmdOK.onClick = [this] { close(); };
    cmdSysInfo.onClick = [this] { cmdSysInfo_Click(); };
}

void About::cmdSysInfo_Click() {
    if (!bench.platform.surroundings.startSystemInformation()) {
        bench.platform.dialogs.show({.text = "System Information Is Unavailable At This Time"});
    }
}

Products::Products(Bench& ownBench)
    : Form(ownBench.desk, "Products", "Supported Products", Kind::Modal)
    , lblProducts(*this, "lblProducts", "ZOR " + productVersion() + " supports the following products:")
    , lblList(*this, "lblList",
              "KT1100, KT1100B\tTransmitter\r\n"
              "KT1101\tTransmitter\r\n"
              "KT1102\tTransmitter\r\n"
              "KT2100\tReceiver\r\n"
              "KT2102\tReceiver\r\n"
              "KT3100, KT3100B\tTransceiver\r\n"
              "KT3101\tTransceiver")
    , cmdOK(*this, "cmdOK", "OK") {
    setExtent({3900, 5400});
    cmdOK.onClick = [this] { close(); };
}

DataFilterHelp::DataFilterHelp(Bench& ownBench)
    : Form(ownBench.desk, "Help_R1", "Data Filter Block Diagram")
    , Picture1(*this, "Picture1")
    , cmdClose(*this, "cmdClose", "Close") {
    setExtent({6000, 9000});
    cmdClose.onClick = [this] { close(); };
}

} // namespace zor
