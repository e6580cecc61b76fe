// SPDX-License-Identifier: MIT
#include "bench_on_terminal.h"

#include "link/connect.h"

namespace zor::benchmarks {

BenchOnTerminal::BenchOnTerminal(const std::string& terminalPath) {
    devices.addDevice(terminalPath, "LoadBoard");
    window.show();
    connect().open(1, LineSettings{});
    bench().link.port.endStart();
}

OpalV2& BenchOnTerminal::panel() {
    if (!opal) {
        opal = std::make_unique<OpalV2>(bench());
        opal->load();
        opal->show();
    }
    return *opal;
}

} // namespace zor::benchmarks
