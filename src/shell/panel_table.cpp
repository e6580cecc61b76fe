// SPDX-License-Identifier: MIT
#include "shell/panel_table.h"

#include "panels/receivers/amber_v1.h"
#include "panels/receivers/beryl_v3.h"
#include "panels/receivers/coral.h"
#include "panels/receivers/frm_topaz.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"

#include <algorithm>

namespace zor {

namespace {

template <class Panel>
std::unique_ptr<ChipPanel> make(Bench& bench) {
    return std::make_unique<Panel>(bench);
}

using Menu = MainMenu;

PanelTools receiverTools() {
    return {.enabledOnShow = {&Menu::mnuToolsRFlink, &Menu::mnuToolsAmberTestmode},
            .enabledWithGeneration2 = {&Menu::mnutoolsRFSetup_RX},
            .disabledOnHide = {&Menu::mnuToolsOpalTestmode, &Menu::mnuToolsAmberTestmode,
                               &Menu::mnuToolsBerylTestmode, &Menu::mnuToolsRFlink,
                               &Menu::mnutoolsRFSetup_RX},
            .closedOnHide = {Tool::AmberV1rflink, Tool::AmberV1rflink_LB2, Tool::frm_Link_RX}};
}

PanelTools transmitterTools() {
    return {.enabledOnShow = {&Menu::mnuToolsOpalTestmode, &Menu::mnutoolsECET},
            .enabledWithGeneration2 = {&Menu::mnutoolsRFSetup_TX},
            .disabledOnHide = {&Menu::mnuToolsOpalTestmode, &Menu::mnuToolsAmberTestmode,
                               &Menu::mnuToolsBerylTestmode, &Menu::mnuToolsRFlink, &Menu::mnutoolsECET,
                               &Menu::mnutoolsRFSetup_TX},
            .closedOnHide = {Tool::frm_Link, Tool::OpalV2test}};
}

/// The tools know nothing of the KT1102; those of its siblings go all the same.
PanelTools toolsOfKT1102() {
    PanelTools tools = transmitterTools();
    tools.enabledOnShow.clear();
    tools.enabledWithGeneration2.clear();
    return tools;
}

PanelTools transceiverTools() {
    return {.enabledOnShow = {&Menu::mnuToolsBerylTestmode},
            .enabledWithGeneration2 = {&Menu::mnuToolsBerylRFlink, &Menu::mnutoolsRFSetup_TX,
                                       &Menu::mnutoolsRFSetup_RX},
            .disabledOnHide = {&Menu::mnuToolsOpalTestmode, &Menu::mnuToolsAmberTestmode,
                               &Menu::mnuToolsBerylTestmode, &Menu::mnuToolsBerylRFlink,
                               &Menu::mnutoolsRFSetup_TX, &Menu::mnutoolsRFSetup_RX},
            .closedOnHide = {Tool::frm_Link, Tool::frm_Link_RX, Tool::Frm_BerylRfLinkTest}};
}

} // namespace

const std::vector<PanelRow>& panelRows() {
    constexpr auto transmitter = ChipClass::Transmitter;
    constexpr auto receiver = ChipClass::Receiver;
    constexpr auto transceiver = ChipClass::Transceiver;
    // clang-format off
    static const std::vector<PanelRow> rows = {
        {"OpalV2",    &WindowSwitches::TX0on,  transmitter, &Menu::mnuViewTx0,      &Menu::mnuViewTx0Bijaku, transmitterTools(), make<OpalV2>,    "tc",  OpalV2::chipTraits},
        {"JadeV1",    &WindowSwitches::TX1on,  transmitter, &Menu::mnuViewTx1,      nullptr,                 transmitterTools(), make<JadeV1>,    "tc1", JadeV1::chipTraits},
        {"KT1102",    &WindowSwitches::TX2on,  transmitter, &Menu::mnuViewTx2,      nullptr,                 toolsOfKT1102(),    make<KT1102>,    "tc2", KT1102::chipTraits},
        {"AmberV1",   &WindowSwitches::RXon,   receiver,    &Menu::mnuViewRx,       nullptr,                 receiverTools(),    make<AmberV1>,   "rc",  AmberV1::chipTraits},
        {"Coral",     &WindowSwitches::RX1on,  receiver,    &Menu::mnuViewCoralRx,  nullptr,                 receiverTools(),    make<Coral>,     "rc2", Coral::chipTraits},
        {"BerylV3",   &WindowSwitches::TRXon,  transceiver, &Menu::mnuViewTRx,      &Menu::mnuViewTRxBijaku, transceiverTools(), make<BerylV3>,   "trc", BerylV3::chipTraits},
        {"FRM_Topaz", &WindowSwitches::TRX1on, transceiver, &Menu::mnuViewTopazTRx, nullptr,                 transceiverTools(), make<FRM_Topaz>, "lrc", FRM_Topaz::chipTraits},
    };
    // clang-format on
    return rows;
}

const std::vector<PanelChoice>& panelChoices() {
    constexpr auto plain = Variant::Plain;
    constexpr auto bijaku = Variant::Bijaku;
    // clang-format off
    static const std::vector<PanelChoice> choices = {
        {"Opal",         &Menu::mnuViewTx0,       "OpalV2",    "OpalV2",   "KT1100",  plain},
        {"Opal-Bijaku",  &Menu::mnuViewTx0Bijaku, "OpalV2",    "OpalV2B",  "KT1100B", bijaku},
        {"Jade",         &Menu::mnuViewTx1,       "JadeV1",    "JadeV1",   "KT1101",  plain},
        {"Onyx",         &Menu::mnuViewTx2,       "KT1102",    "Onyx",     "KT1102",  plain},
        {"Amber",        &Menu::mnuViewRx,        "AmberV1",   "Amber",    "KT2100",  plain},
        {"Coral",        &Menu::mnuViewCoralRx,   "Coral",     "Coral",    "KT2102",  plain},
        {"Beryl",        &Menu::mnuViewTRx,       "BerylV3",   "BerylV3",  "KT3100",  plain},
        {"Beryl-Bijaku", &Menu::mnuViewTRxBijaku, "BerylV3",   "BerylV3B", "KT3100B", bijaku},
        {"Topaz",        &Menu::mnuViewTopazTRx,  "FRM_Topaz", "Topaz",    "KT3101",  plain},
    };
    // clang-format on
    return choices;
}

const PanelChoice& plainChoiceOf(std::string_view panel) {
    return *std::find_if(panelChoices().begin(), panelChoices().end(), [panel](const PanelChoice& choice) {
        return choice.panel == panel && choice.variant == Variant::Plain;
    });
}

} // namespace zor
