// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/guide.h"

namespace zor {

QWidget* guideView(Form& form) {
    auto& g = static_cast<Guide&>(form);
    return window({line(list(g.Contents, 34), button(g.Back), stretch(), textField(g.Search, 14),
                        button(g.FindPrevious), button(g.FindNext)),
                   documentView(g.Page), label(g.Found, Tone::Soft)},
                  1);
}

} // namespace zor
