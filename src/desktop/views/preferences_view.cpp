// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "shell/preferences.h"

namespace zor {

QWidget* preferencesView(Form& form) {
    auto& p = static_cast<Preferences&>(form);
    QWidget* ports = group(p.PortRange, {line(labelled(p.LabelFrom, spin(p.ComNr_min, p.UpDown1, 3)),
                                              labelled(p.LabelTo, spin(p.ComNr_max, p.UpDown2, 3)))});
    QWidget* pages = tabs(
        p.TabStrip1,
        {plain(p.Frame_pref_tabs[0], {ports, tick(p.ReconnectByItself)}),
         plain(p.Frame_pref_tabs[1],
               {tick(p.LoadWS), line(tick(p.CCautoLoad), label(p.CCautoLoadRemark, Tone::Soft), stretch())}),
         plain(p.Frame_pref_tabs[2], {tick(p.EnLB_FWload)})});
    return window({pages, line(stretch(), button(p.Save), button(p.Exit))}, 0);
}

} // namespace zor
