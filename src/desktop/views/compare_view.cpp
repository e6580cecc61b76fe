// SPDX-License-Identifier: MIT
#include "compare/frm_compare.h"
#include "desktop/views/compose.h"
#include "desktop/views/views.h"

namespace zor {

QWidget* compareView(Form& form) {
    auto& c = static_cast<frm_Compare&>(form);
    return window(
        {
            line(label(c.L_Panel, Tone::Title), stretch()),
            line(labelled(c.LabelLeft, list(c.CB_Left, 22)), label(c.L_Left, Tone::Soft),
                 labelled(c.LabelRight, list(c.CB_Right, 22)), label(c.L_Right, Tone::Soft), stretch()),
            gridView(c.GR_Differences, 14),
            line(label(c.L_Count, Tone::Soft), stretch()),
            line(button(c.PB_TakeLeft), button(c.PB_TakeAllLeft), button(c.PB_TakeRight),
                 button(c.PB_TakeAllRight), stretch(), button(c.PB_Save)),
            folding(c.L_Result),
        },
        2);
}

} // namespace zor
