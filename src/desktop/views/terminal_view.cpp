// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/terminal.h"

namespace zor {

QWidget* terminalView(Form& form) {
    auto& t = static_cast<Terminal&>(form);
    QWidget* script = plain(
        t.ScriptFrame, {label(t.Label1), textArea(t.Script, 60, 6),
                        line(stretch(), button(t.LoadScript), button(t.SaveScript), button(t.SendScript))});
    return window({monitor(t.Text1, 72, 16),
                   line(tick(t.En_ScriptWindow), label(t.Kept, Tone::Soft), stretch(), button(t.SaveLog),
                        button(t.Clear)),
                   script},
                  0);
}

} // namespace zor
