// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/views/panel_parts.h"
#include "desktop/views/views.h"
#include "rftools/opal_v2_test.h"
#include "rftools/test_functions.h"

namespace zor {

namespace {

/// A list under its own long caption, with the code that its choice is.
Lines outputs(ListBox& choice, TextField& code) {
    return {caption(toQt(choice.caption())),
            line(list(choice, 34), stretch(), labelled(toQt(code.caption()), codeField(code, 3)))};
}

/// What a byte has become, and the button that sends it.
Line byteLine(TestFunctions& p, std::size_t index) {
    return line(labelled(toQt(p.TB_TestByte[index].caption()), codeField(p.TB_TestByte[index], 3)), stretch(),
                mark(p.LabelUpdate[index]), button(p.PB_Send[index]));
}

QWidget* firstByte(TestFunctions& p) {
    return group(p.Frame_TestByte[1],
                 {
                     line(tick(p.CB_DS), stretch(), option(p.OB_GainswitchHigh), option(p.OB_GainswitchLow)),
                     line(list(p.CB_GBData, 44), stretch(),
                          labelled(toQt(p.TB_GBData.caption()), codeField(p.TB_GBData, 3))),
                     byteLine(p, 1),
                 });
}

QWidget* secondByte(TestFunctions& p) {
    Lines lines = outputs(p.CB_DSLC, p.TB_DSLC);
    for (Line& each : outputs(p.CB_ASLC, p.TB_ASLC)) {
        lines.push_back(each);
    }
    QWidget* lowestBit = tick(p.CB_DisableSensitivePOR);
    if (p.amplifier) {
        lines.emplace_back(
            group(p.amplifier->FramePA, {line(lowestBit, stretch(), keepRoom(label(p.amplifier->Label8)),
                                              keepRoom(list(p.amplifier->CB_GBDataPAMode, 12)))}));
    } else {
        lines.emplace_back(lowestBit);
    }
    lines.push_back(byteLine(p, 0));
    return group(p.Frame_TestByte[0], std::move(lines));
}

} // namespace

QWidget* testFunctionsView(Form& form) {
    auto& p = static_cast<TestFunctions&>(form);
    return window({firstByte(p), secondByte(p)});
}

QWidget* opalTestView(Form& form) {
    auto& p = static_cast<OpalV2test&>(form);
    return window({
        group("Modulator", {tick(p.DSen)}),
        group(
            p.TuningFrame,
            {
                line(option(p.Auto), stretch(), button(p.ReadGearbox), field(p.GearboxValue, 5)),
                line(option(p.Manual), labelled(p.Label3, field(p.GearBoxData, 4)), slider(p.GearBoxScroll)),
            }),
        line(caption(toQt(p.Test0w.caption())), word(p.Test0w), stretch(), mark(p.LabelUpdate),
             strongButton(p.Update)),
    });
}

} // namespace zor
