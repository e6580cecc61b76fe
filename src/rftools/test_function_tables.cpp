// SPDX-License-Identifier: MIT
#include "rftools/test_functions.h"

namespace zor {

namespace {

/// What the chips can lead to their two digital test outputs, by its code.
/// @param fifteenth  the one entry that differs
std::vector<std::string> digitalOutputs(const char* fifteenth) {
    return {"Low",
            "GearBox Out <0>",
            "GearBox Out <1>",
            "GearBox Out <2>",
            "GearBox Out <3>",
            "RDY",
            "Up/_Do",
            "_STOP",
            "Delta-Sigma M<0>",
            "Delta-Sigma M<1>",
            "Delta-Sigma M<2>",
            "FV",
            "XEN",
            "CR_LOCK",
            "PLL UP/DN (LD)",
            fifteenth,
            "I,Q",
            "Stop, RDY",
            "Stop, GBOsc",
            "GearBox Out <0,1>",
            "GearBox Out <2,3>",
            "GearBox Out <4>, 0"};
}

const TestFunctionTraits& receiverTraits() {
    static const TestFunctionTraits traits = {
        .form = "Frm_AmberTestFunctions",
        .title = "KT2100 receiver test mode",
        .panels = {"AmberV1", "Coral"},
        .digitalOutputCaption = "Digital Outputs <1:0> < DRSSI (pin 16) : CLK (pin 8) >",
        .digitalOutputs = digitalOutputs("No Frequency Check"),
        .modes = {"Normal Mode", "GearBox value comes from outside",
                  "BaseBand Filter value comes from outside"},
        .lowestBitCaption = "Disable Sensitive POR",
        .amplifierMode = {},
        .amplifierBits = {},
    };
    return traits;
}

const TestFunctionTraits& transceiverTraits() {
    static const TestFunctionTraits traits = {
        .form = "Frm_BerylTestFunctions",
        .title = "KT3100 transceiver test mode",
        .panels = {"BerylV3", "FRM_Topaz"},
        .digitalOutputCaption = "Digital Outputs <1:0> < VDI (pin 16) : CLK (pin 8) >",
        .digitalOutputs = digitalOutputs("Low"),
        .modes = {"Normal Mode", "GearBox value comes from outside (BG<3:0>)",
                  "BaseBand Filter value comes from outside (BG<4:0>)",
                  "Antenna circuit value comes from outside (BG<3:0>)"},
        .lowestBitCaption = "PA Test and Data Read Selection",
        .amplifierMode = "PA status bits reading on CLK out",
        .amplifierBits = {"PA_OUT<0>", "PA_OUT<1>", "PA_OUT<2>", "PA_OUT<3>", "C0", "C1", "OK", "High"},
    };
    return traits;
}

} // namespace

Frm_AmberTestFunctions::Frm_AmberTestFunctions(Bench& ownBench)
    : TestFunctions(ownBench, receiverTraits()) {}

Frm_BerylTestFunctions::Frm_BerylTestFunctions(Bench& ownBench)
    : TestFunctions(ownBench, transceiverTraits()) {}

} // namespace zor
