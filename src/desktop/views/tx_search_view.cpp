// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "rftools/tx_search.h"

namespace zor {

namespace {

Cell captioned(TextField& element) {
    return labelled(toQt(element.caption()), field(element, 10));
}

QWidget* searchArea(TxSearch& s) {
    return plain(s.SearchArea,
                 {
                     line(labelled("From", field(s.SpanFrom, 9)), labelled("to", field(s.SpanTo, 9), "MHz"),
                          labelled("Step", field(s.SpanStep, 6), "kHz"),
                          labelled("Settle", field(s.SpanDwell, 5), "ms"), stretch()),
                     line(progress(s.SearchProgress), button(s.PB_STOP)),
                     line(label(s.SearchState, Tone::Soft)),
                     line(plot(s.SearchPlot, 80, 11)),
                     line(caption("Carriers"), stretch(), button(s.SaveSpectrum)),
                     line(gridView(s.Carriers, 5)),
                     line(button(s.TakeCarrier), stretch(), button(s.SaveCarriers)),
                 });
}

} // namespace

QWidget* txSearchView(Form& form) {
    auto& s = static_cast<TxSearch&>(form);
    return window({
        across(
            {plain({
                 line(captioned(s.DataRate)),
                 line(captioned(s.DRSSI)),
                 line(captioned(s.FreqBand)),
             }),
             column({group(s.FR_Searching, {line(labelled("AFC", field(s.AFC_Value, 10), "kHz")),
                                            line(labelled("Frequency", field(s.Freq_Value, 10), "MHz"))})})}),
        line(tick(s.CHK_Search), stretch(), strongButton(s.PB_START)),
        searchArea(s),
    });
}

} // namespace zor
