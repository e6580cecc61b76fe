// SPDX-License-Identifier: MIT
#include "shell/wire_log_memory.h"

#include "shell/settings.h"
#include "utilities/wire_log.h"

#include <memory>

namespace zor {

namespace {

void keep(const Platform& platform, const std::string& place) {
    OwnPreferences preferences = readOwnPreferences(platform);
    preferences.wireLogPlace = place;
    try {
        writeOwnPreferences(platform, preferences);
    } catch (const ToolError&) {
        // It then lasts as long as the window; nothing but comfort is lost.
    }
}

} // namespace

Subscription rememberWireLogPlace(Bench& bench) {
    auto chosen = std::make_shared<Subscription>();
    return bench.desk.opened.subscribe([&bench, chosen](Form& form) {
        auto* log = dynamic_cast<WireLog*>(&form);
        if (log == nullptr) {
            return;
        }
        log->putPlace(readOwnPreferences(bench.platform).wireLogPlace);
        *chosen = log->placeChosen.subscribe([&bench, log] { keep(bench.platform, log->Dock.text()); });
    });
}

} // namespace zor
