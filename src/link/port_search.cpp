// SPDX-License-Identifier: MIT
#include "link/port_search.h"

#include "link/commands.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>

namespace zor {

namespace {

constexpr std::chrono::milliseconds stepInterval(100);
constexpr std::size_t bannerLength = 94;
constexpr int highestPort = 16;

constexpr std::array<Firmware, 4> firmwares = {{
    {1, 3, "Ortolan Radio Bench System", 34, "1.", "LoadBoard 1.x: Com", "1.x on Com"},
    {2, 3, "Ortolan Radio Bench System", 34, "2.", "LoadBoard 2.x: Com", "2.x on Com"},
    {50, 5, "Vireo Demo Monitor", 27, "1.", "VireoMac Monitor: Com", "VireoMac Monitor: Com"},
    {40, 5, "LoadBoard Loader", 1, "", "LoadB. Loader: Com", "LoadB. Loader: Com"},
}};

bool standsAt(std::string_view text, std::size_t position, std::string_view part) {
    return text.size() >= position - 1 + part.size() && text.substr(position - 1, part.size()) == part;
}

std::int16_t numberOf(const std::string& preference) {
    return static_cast<std::int16_t>(std::clamp(roundToInt(numericPrefix(preference)), 0, highestPort));
}

} // namespace

const Firmware* recogniseFirmware(std::string_view last100) {
    std::string_view banner =
        last100.size() > bannerLength ? last100.substr(last100.size() - bannerLength) : last100;
    auto match = std::find_if(firmwares.begin(), firmwares.end(), [banner](const Firmware& firmware) {
        return standsAt(banner, firmware.namePosition, firmware.name) &&
               standsAt(banner, firmware.versionPosition, firmware.version);
    });
    return match == firmwares.end() ? nullptr : &*match;
}

const Firmware* firmwareOfEntry(std::string_view entry) {
    // The three LoadBoard kinds differ in their first 13 characters, the monitor in its name.
    auto match = std::find_if(firmwares.begin(), firmwares.end(), [entry](const Firmware& firmware) {
        std::string_view head = firmware.listEntry.substr(0, firmware.listEntry.find(':'));
        return entry.substr(0, head.size()) == head;
    });
    return match == firmwares.end() ? nullptr : &*match;
}

PortSearch::PortSearch(Bench& ownBench, LinkStateMachine& ownLink, Connect& channel)
    : bench(ownBench)
    , link(ownLink)
    , connect(channel)
    , Timer1(ownBench.platform.loop, [this] { Timer1_Timer(); }) {}

void PortSearch::begin() {
    SearchComNr = numberOf(bench.preferences.Commport_min);
    SearchComMax = numberOf(bench.preferences.Commport_max);
    SearchLimit = 10;
    SearchTicks = 0;
    denied.clear();
    busy.clear();
    bench.platform.ports.renumber();
    claim = bench.link.port.seize(tryToOpen);
    Timer1.start(stepInterval);
    link.beginSearch();
}

void PortSearch::Timer1_Timer() {
    try {
        runStep(static_cast<Step>(claim.step()));
    } catch (const PortAccessError& error) {
        denied.push_back(error.devicePath());
        connect.endTrial();
        nextPort();
    } catch (const ToolError& error) {
        connect.endTrial();
        if (error.number() == portInUse) {
            std::string device = bench.platform.ports.devicePath(SearchComNr);
            busy.push_back(device.empty() ? "port " + std::to_string(SearchComNr) : device);
        }
        if (error.number() == invalidPort || error.number() == portInUse) {
            nextPort();
        } else {
            claim.setStep(finish);
            bench.tellError(error, "Port searching error");
        }
    }
}

void PortSearch::runStep(Step step) {
    switch (step) {
    case tryToOpen:
        open();
        claim.setStep(ask);
        break;
    case ask:
        connect.askOnTrial(command::identify);
        claim.setStep(listen);
        break;
    case listen:
        listenOnce();
        break;
    case finish:
        end();
        break;
    }
}

void PortSearch::open() {
    connect.beginTrial();
    link.showTrial(SearchComNr);
    connect.openTrial(SearchComNr);
}

void PortSearch::listenOnce() {
    if (SearchTicks > SearchLimit) {
        SearchTicks = 0;
        connect.closeTrial();
        connect.endTrial();
        nextPort();
        return;
    }
    if (connect.Last100.empty() || connect.Last7 != LinkVariables::Last7OK) {
        ++SearchTicks;
        return;
    }
    SearchTicks = 0;
    if (const Firmware* firmware = recogniseFirmware(connect.Last100)) {
        std::string number = std::to_string(SearchComNr);
        link.addBoard(std::string(firmware->foundText) + number, std::string(firmware->listEntry) + number,
                      bench.platform.ports.devicePath(SearchComNr));
        bench.link.LoadBoardRev = firmware->loadBoardRev;
    }
    connect.closeTrial();
    connect.endTrial();
    nextPort();
}

void PortSearch::nextPort() {
    ++SearchComNr;
    claim.setStep(SearchComNr > SearchComMax ? finish : tryToOpen);
}

void PortSearch::end() {
    Timer1.stop();
    claim.giveBack();
    link.endSearch();
    finished.emit();
}

} // namespace zor
