// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/tx_search.h"

namespace zor {

namespace {

Cell captioned(TextField& element) {
    return labelled(toQt(element.caption()), field(element, 10));
}

} // namespace

QWidget* txSearchView(Form& form) {
    auto& s = static_cast<TxSearch&>(form);
    return window({
        line(captioned(s.DataRate)),
        line(captioned(s.DRSSI)),
        line(captioned(s.FreqBand)),
        group(s.FR_Searching, {line(labelled("AFC", field(s.AFC_Value, 10))),
                               line(labelled("Frequency", field(s.Freq_Value, 10)))}),
        line(stretch(), button(s.PB_START)),
    });
}

} // namespace zor
