// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/demo_board.h"
#include "elements/signal.h"

#include <filesystem>
#include <string>

namespace zor {

class Desk;
class SerialDevices;

/// The simulated board as the first port of this machine, whoever asks for it: --demo or the start page. A
/// board that has ended is started anew when the ports get their numbers, which a search begins with. The
/// devices must outlive it.
class DemoPort {
  public:
    explicit DemoPort(SerialDevices& serialDevices);
    ~DemoPort();
    DemoPort(const DemoPort&) = delete;
    DemoPort& operator=(const DemoPort&) = delete;

    DemoBoard board;

    /// Starts the board and offers its terminal. Called until it succeeds, once more it has no sense.
    /// @return whether there is one now
    [[nodiscard]] bool offer(const QStringList& arguments);
    /// The board bears the chip whose panel opens, as an engineer would mount it; before it was started the
    /// chip waits for it.
    /// @param registers  the list for the register tool's chip
    [[nodiscard]] Subscription mountOnOpening(Desk& desk, const std::filesystem::path& registers);

  private:
    void lookAfter();

    SerialDevices& devices;
    std::string terminal;
};

} // namespace zor
