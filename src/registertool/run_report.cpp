// SPDX-License-Identifier: MIT
#include "registertool/run_report.h"

#include "registertool/spi.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

RunReport::RunReport(SPI& ownTool)
    : Doing(ownTool, "Doing")
    , tool(ownTool) {}

void RunReport::begin() {
    begun = tool.bench.platform.loop.now();
}

void RunReport::at(std::string what, std::size_t done, std::size_t total) {
    underWay = true;
    what.append(" ").append(std::to_string(done)).append(" of ").append(std::to_string(total));
    show(std::move(what));
}

void RunReport::end(const std::string& outcome, const std::string& remark) {
    underWay = false;
    std::chrono::duration<double> took = tool.bench.platform.loop.now() - begun;
    std::string seconds = numberText(roundToDecimals(took.count(), 1));
    show(outcome + " in " + (seconds.starts_with('.') ? "0" : "") + seconds + " s" +
         (remark.empty() ? "" : "; " + remark));
}

void RunReport::say(const std::string& outcome) {
    underWay = false;
    show(outcome);
}

void RunReport::free() {
    if (std::exchange(underWay, false)) {
        show("ended at " + Doing.caption());
    }
}

void RunReport::atScript(std::string what) {
    script = std::move(what);
    show({});
}

void RunReport::endScript(const std::string& outcome) {
    underWay = false;
    script.clear();
    show(outcome);
}

void RunReport::show(std::string text) {
    if (!script.empty()) {
        text.insert(0, text.empty() ? script : script + ", ");
    }
    Doing.setCaption(std::move(text));
}

} // namespace zor
