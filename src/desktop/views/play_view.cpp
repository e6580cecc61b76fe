// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "transcript/frm_play.h"

namespace zor {

QWidget* playView(Form& form) {
    auto& w = static_cast<transcript::FrmPlay&>(form);
    return window({line(labelled(w.LabelFile, textField(w.TX_File, 40)), button(w.PB_Open)),
                   line(button(w.PB_Play), button(w.PB_Pause), button(w.PB_Step), button(w.PB_Stop),
                        stretch(), progress(w.PR_Lines)),
                   gridView(w.GR_Lines, 14),
                   line(label(w.LB_State, Tone::Soft), stretch(), button(w.PB_Report))},
                  2);
}

} // namespace zor
