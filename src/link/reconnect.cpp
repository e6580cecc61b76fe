// SPDX-License-Identifier: MIT
#include "link/reconnect.h"

namespace zor {

namespace {

constexpr std::chrono::milliseconds watchInterval(500);

} // namespace

Reconnect::Reconnect(Bench& ownBench, LinkBar& ownBar, LinkStateMachine& ownLink, BoardChoice& boardChoice,
                     const Connect& ownChannel)
    : bench(ownBench)
    , bar(ownBar)
    , link(ownLink)
    , choice(boardChoice)
    , channel(ownChannel)
    , watch(ownBench.platform.loop, [this] { watch_Timer(); })
    , states(ownLink.entered.subscribe([this](LinkState state) { linkEntered(state); })) {
    bar.Reconnect.setVisible(false);
    bar.Reconnect.onClick = [this] { connect(); };
}

void Reconnect::linkEntered(LinkState state) {
    bar.Reconnect.setVisible(false);
    watch.stop();
    if (state == LinkState::Connected) {
        adapter = bench.platform.ports.identity(channel.portNumber());
    } else if (state == LinkState::Lost) {
        watch.start(watchInterval);
    }
}

void Reconnect::watch_Timer() {
    bool back = !adapter.empty() && bench.platform.ports.find(adapter) == channel.portNumber();
    if (back && !bar.Reconnect.visible()) {
        if (bench.preferences.ReconnectByItself) {
            connect();
            return;
        }
        bench.notice("The board is back.");
    }
    bar.Reconnect.setVisible(back);
}

void Reconnect::connect() {
    watch.stop();
    bar.Reconnect.setVisible(false);
    bench.notice("");
    choice.connectAgain(link.lostEntry());
    if (link.state() == LinkState::Lost) {
        // It could not be opened; it may be pulled out and come back again.
        watch.start(watchInterval);
    }
}

} // namespace zor
