// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/mac_sniffer.h"

namespace zor {

QWidget* macSnifferView(Form& form) {
    auto& s = static_cast<MacSniffer&>(form);
    QWidget* versions = group(s.FR_OPT, {option(s.OPT_Lite), option(s.OPT_Norm)});
    QWidget* header =
        group(s.FR_Hopt, {line(option(s.OPT_FixPlen), labelled(s.LBL_Plen, field(s.TXT_Plen, 4))),
                          option(s.OPT_DPlen), tick(s.CHK_CID)});
    QWidget* addresses = group(s.FR_Addr_Setup, {tick(s.chk_Rar), option(s.OPT_Nw), option(s.OPT_Nrm)});
    return window({across({versions, header, addresses}, 1), monitor(s.Incoming, 80, 16),
                   line(label(s.Kept, Tone::Soft), stretch(), button(s.Clear), button(s.Save))},
                  1);
}

} // namespace zor
