// SPDX-License-Identifier: MIT
#include "link/link_messages.h"

namespace zor {

LinkMessages::LinkMessages(Bench& ownBench, Connect& channel)
    : bench(ownBench)
    , troubles(channel.troubled.subscribe([this](const PortTrouble& trouble) { tell(trouble); })) {}

void LinkMessages::tell(const PortTrouble& trouble) const {
    switch (trouble.kind) {
    case PortTrouble::Kind::SendFailed:
        bench.tellError(trouble.error, "USB communication error");
        return;
    case PortTrouble::Kind::ClosingFailed:
        bench.tellError(trouble.error, "LoadBoard Communication error");
        return;
    case PortTrouble::Kind::BoardLost:
        bench.platform.dialogs.show({.text = "Loadboard disconnected!\r\nPlease press connect again!",
                                     .title = "LoadBoard Communication Error!",
                                     .icon = BoxIcon::Critical});
        return;
    }
}

} // namespace zor
