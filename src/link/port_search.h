// SPDX-License-Identifier: MIT
#pragma once

#include "link/connect.h"
#include "link/link_state.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zor {

/// The search for boards: every port of the preferred range is opened, asked who answers, and closed again,
/// one step a tick, while the user already sees the window.
///
///     tryToOpen --> ask --> listen --+--> finish
///         ^                          |
///         +------- next port <-------+   a port that is missing or in use goes on to the next at once
///
/// It takes the port from whoever has it, so that no panel begins a sequence meanwhile.
class PortSearch {
  public:
    PortSearch(Bench& ownBench, LinkStateMachine& ownLink, Connect& channel);

    /// Starts at the first port of the range; buttons and boards' choice are out of reach until the end.
    void begin();

    /// Search over: the bars are set, CommState is 0.
    Signal<> finished;
    /// Devices that exist but that the user may not open, found by the last search.
    [[nodiscard]] const std::vector<std::string>& deniedDevices() const { return denied; }

    /// Devices that another program has open.
    [[nodiscard]] const std::vector<std::string>& busyDevices() const { return busy; }

    // How far it is.
    [[nodiscard]] std::int16_t portNumber() const { return SearchComNr; }
    [[nodiscard]] std::int16_t lastPort() const { return SearchComMax; }
    [[nodiscard]] std::int16_t ticks() const { return SearchTicks; }
    [[nodiscard]] std::int16_t tickLimit() const { return SearchLimit; }

  private:
    enum Step : std::int32_t { tryToOpen = 1, ask = 2, listen = 3, finish = 100 };

    void Timer1_Timer();
    void runStep(Step step);
    void open();
    void listenOnce();
    void nextPort();
    void end();

    Bench& bench;
    LinkStateMachine& link;
    Connect& connect;
    Timer Timer1;
    PortClaim claim;
    std::int16_t SearchComNr = 0;
    std::int16_t SearchComMax = 0;
    std::int16_t SearchTicks = 0;
    std::int16_t SearchLimit = 10;
    std::vector<std::string> denied;
    std::vector<std::string> busy;
};

/// A firmware that the search tells apart by its banner.
struct Firmware {
    std::int16_t loadBoardRev;
    /// Where the name stands in the last 94 characters of the answer, from 1, and the name.
    std::size_t namePosition;
    std::string_view name;
    /// Where the version's beginning stands, and the beginning; empty if any version will do.
    std::size_t versionPosition;
    std::string_view version;
    /// Beginnings of the list entry and of the text shown while searching; the port's number follows.
    std::string_view listEntry;
    std::string_view foundText;
};

/// The firmware whose banner ends the received text; nullptr if none does.
[[nodiscard]] const Firmware* recogniseFirmware(std::string_view last100);

/// The firmware of a list entry; nullptr if the entry is none's.
[[nodiscard]] const Firmware* firmwareOfEntry(std::string_view entry);

} // namespace zor
