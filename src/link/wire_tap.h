// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "link/exchange.h"
#include "platform/event_loop.h"

#include <string_view>

namespace zor {

/// Characters that crossed a port.
struct WireBytes {
    enum class Direction { ToBoard, FromBoard };
    enum class Port { Search, Working };

    Port role = Port::Working;
    int number = 0;
    Direction direction = Direction::ToBoard;
    std::string_view bytes;
    /// A line waits for its answer, to which the character belongs.
    bool awaited = false;
};

/// A command line with how it ended.
struct WireExchange {
    int number = 0;
    /// Its terminator included.
    std::string_view line;
    const Exchange& result;
    /// Somebody waited for the prompt; the loader's lines and the way into Data mode go without.
    bool awaited = true;
    EventLoop::Duration sent{};
    EventLoop::Duration ended{};
};

/// Everything that crosses the search port and the working port, for whoever listens. Costs next to nothing
/// while nobody does.
struct WireTap {
    Signal<const WireBytes&> bytes;
    Signal<const WireExchange&> exchanges;
};

} // namespace zor
