// SPDX-License-Identifier: MIT
#include "compare/frm_set_from.h"
#include "desktop/views/compose.h"
#include "desktop/views/views.h"

namespace zor {

QWidget* setFromView(Form& form) {
    auto& s = static_cast<frm_SetFrom&>(form);
    return window(
        {
            line(label(s.L_Panel, Tone::Title), stretch()),
            line(labelled(s.LabelWord, list(s.CB_Word, 28)), codeField(s.TB_Word, 24), button(s.PB_SetWord)),
            folding(s.L_Meaning, Tone::Soft),
            line(label(s.LabelHeader), stretch(), button(s.PB_LoadHeader), strongButton(s.PB_SetHeader)),
            sourceText(s.TB_HeaderText, 90, 12),
            folding(s.L_Result),
            captionedGrid(s.GR_Refused, 6),
        },
        4);
}

} // namespace zor
