// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/firm_load.h"

namespace zor {

QWidget* firmLoadView(Form& form) {
    auto& f = static_cast<FirmLoad&>(form);
    return window({
        line(button(f.loadeefile), label(f.FileInfo), stretch()),
        group(f.Ser_Speed, {options(f.SerSpd_192, f.SerSpd_384, f.SerSpd_576)}),
        line(strongButton(f.Prog), button(f.StopButton), stretch(), labelled("Line", field(f.state))),
        progress(f.ProgressBar1),
        line(label(f.ProgressText, Tone::Soft), stretch()),
        line(label(f.Outcome), stretch()),
    });
}

} // namespace zor
