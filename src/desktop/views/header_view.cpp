// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "headergen/frm_gen_header.h"

namespace zor {

QWidget* headerView(Form& form) {
    auto& g = static_cast<Frm_GenHeader&>(form);
    return window(
        {
            line(label(g.L_Source, Tone::Title), stretch()),
            line(option(g.CB_DeviceName), option(g.CB_DefineLiteral), textField(g.TB_Literal, 16),
                 label(g.L_LiteralNote, Tone::Reminder), stretch()),
            sourceText(g.TB_Header, 110, 24),
            line(strongButton(g.PB_Generate), button(g.PB_Clear), stretch(), button(g.PB_Copy),
                 button(g.PB_Save), button(g.PB_SaveAgain)),
            line(label(g.L_Unsent, Tone::Soft), stretch(), label(g.L_Saved, Tone::Soft)),
        },
        2);
}

} // namespace zor
