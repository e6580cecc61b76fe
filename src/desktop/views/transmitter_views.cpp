// SPDX-License-Identifier: MIT
#include "desktop/views/panel_parts.h"
#include "desktop/views/views.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"

namespace zor {

namespace {

/// The clock output's tick, whose caption is two labels that toggle it too.
Line clockTick(TransmitterPanel& p) {
    return line(tick(*p.pm(0), QString()), label(p.Label47), label(p.Label48), stretch());
}

Line clockOutput(TransmitterPanel& p) {
    return labelled("Clock output", list(p.CLKout, 8), "MHz");
}

QWidget* autoPowerGroup(AutoPowerTransmitter& p) {
    return group("Power management",
                 {
                     grid(2, {caption("Auto power control"), caption("Manual power control"), tick(*p.pm(7)),
                              tick(*p.pm(5)), tick(*p.pm(6)), tick(*p.pm(4)), new QWidget, tick(*p.pm(3)),
                              tick(*p.pm(2)), tick(*p.pm(1))}),
                     clockTick(p),
                     clockOutput(p),
                 });
}

QWidget* autoModulationGroup(AutoPowerTransmitter& p) {
    return group("Transmitter", {
                                    line(labelled("Modulation", list(p.Modulation, 8)),
                                         labelled("Output power", list(p.OutputPower, 8))),
                                    line(labelled("Polarity", list(p.ModPol, 8)),
                                         labelled("Deviation", list(p.ModFreq, 8), "kHz")),
                                });
}

/// The swatches that the list takes its colours from go with it.
QWidget* revisionGroup(OpalV2& p) {
    QWidget* revisions = list(p.Revision, 14);
    QWidget* swatches = across({swatch(p.Yellow), swatch(p.Green)});
    Binding::of(revisions)->addCompanion(*swatches);
    Binding::of(revisions)->redraw();
    // A group without its list and its border would be an empty patch.
    QWidget* box = across({group(p.Frame1, {line(revisions, swatches, stretch())})});
    Binding::of(revisions)->addCompanion(*box);
    return box;
}

QWidget* columns(const std::vector<QWidget*>& left, const std::vector<QWidget*>& right) {
    return across({column(left), column(right)});
}

} // namespace

QWidget* opalView(Form& form) {
    auto& p = static_cast<OpalV2&>(form);
    return panelWindow(p, columns({crystalGroup(p), autoPowerGroup(p), supplyGroup(p)},
                                  {frequencyGroup(p), autoModulationGroup(p), revisionGroup(p),
                                   wakeUpGroup(p, {formula(p.WakeUpFormula, p.WakeUpFormulaPower)}),
                                   lowBatteryGroup(p, {label(p.ThresholdFormula, Tone::Soft)})}));
}

QWidget* jadeView(Form& form) {
    auto& p = static_cast<JadeV1&>(form);
    return panelWindow(
        p, columns({crystalGroup(p), autoPowerGroup(p),
                    group("Data rate", {line(labelled("R", field(p.DATARATEDIV, 5)),
                                             labelled("Rate", field(p.DATARATE, 9), "kbps")),
                                        line(labelled("Maximum", list(p.CB_MaxDataRate, 8), "kbps"),
                                             labelled("Phase noise", field(p.TB_PHNoise, 6), "dBc/Hz"))}),
                    supplyGroup(p)},
                   {frequencyGroup(p), autoModulationGroup(p),
                    group("Select revision:", {line(list(p.Revision, 14), stretch())}),
                    wakeUpGroup(p, {formula(p.WakeUpFormula, p.WakeUpFormulaPower), tick(p.CB_dwc)}),
                    lowBatteryGroup(p, {label(p.ThresholdFormula, Tone::Soft), tick(p.CB_ebs)})}));
}

namespace {

QWidget* onyxPowerGroup(KT1102& p) {
    return group("Power management", {
                                         grid(2, {tick(*p.pm(5)), tick(*p.pm(2)), tick(*p.pm(4)),
                                                  tick(*p.pm(1)), tick(*p.pm(3))}),
                                         clockTick(p),
                                         clockOutput(p),
                                     });
}

QWidget* onyxTransmitterGroup(KT1102& p) {
    return group("Transmitter",
                 {
                     line(labelled("Power", list(p.OutputPower, 6)), labelled("Polarity", list(p.ModPol, 6))),
                     labelled("Deviation", list(p.ModFreq, 4), "kHz"),
                     labelled("Revision", list(p.Revision, 12)),
                 });
}

QWidget* onyxWakeUpGroup(KT1102& p) {
    return group("Wake-up timer",
                 {
                     line(labelled("M", spin(p.WKUPM, p.UD_WakeUpM)), slider(p.SL_WakeUpM)),
                     line(labelled("R", spin(p.WKUPR, p.UD_WakeUpR)), slider(p.SL_WakeUpR)),
                     line(labelled("D", spin(p.WKUPD, p.UD_WakeUpD)), labelled("Time", field(p.WKUPTIME, 8)),
                          label(p.Label8, Tone::Soft)),
                     formula(p.WakeUpFormula, p.WakeUpFormulaPower),
                     reason(p.Label39),
                 });
}

QWidget* onyxBatteryGroup(KT1102& p) {
    return group("Low battery detector",
                 {
                     line(labelled("T", spin(p.LBD, p.UD_LBD)), labelled("Threshold", field(p.LBDV, 5), "V")),
                     tick(p.CB_ebs),
                     label(p.ThresholdFormula, Tone::Soft),
                     reason(p.Label38),
                 });
}

QWidget* onyxDataGroup(KT1102& p) {
    return group(
        "Transmit FIFO and data rate",
        {
            tick(p.CB_EnFIFO),
            line(labelled("Level", spin(p.TB_FIFOITLevel, p.UD_FIFOITLevel)), slider(p.SL_FIFOITLevel)),
            tick(p.CB_Prescaler),
            line(labelled("R", spin(p.TB_DataRate, p.UD_DataRate)), slider(p.SL_DataRateLevel)),
            labelled("Rate", field(p.TB_DataRateValue, 9), "kbps"),
        });
}

QWidget* onyxFeaturesGroup(KT1102& p) {
    return group("Extended features", {
                                          tick(p.CB_EnLowPowerXtal),
                                          tick(p.CB_512ClockTail),
                                          tick(p.CB_DisWUTAutocal),
                                          tick(p.CB_DisFIFOAutoSleep),
                                          tick(p.CB_EnWUonIT),
                                          labelled("PLL bandwidth", list(p.C_PLLBW, 7)),
                                      });
}

} // namespace

QWidget* onyxView(Form& form) {
    auto& p = static_cast<KT1102&>(form);
    return panelWindow(p, across({column({crystalGroup(p), onyxPowerGroup(p), onyxWakeUpGroup(p)}),
                                  column({frequencyGroup(p), onyxTransmitterGroup(p), onyxDataGroup(p)}),
                                  column({onyxFeaturesGroup(p), onyxBatteryGroup(p), supplyGroup(p)})}));
}

} // namespace zor
