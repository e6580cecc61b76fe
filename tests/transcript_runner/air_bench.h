// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"
#include "simulator/air.h"

#include <string_view>

namespace zor::testing {

/// The air over one board, with a far end that acts on the machine's time.
class AirBench {
  public:
    /// @param nearBoard  must outlive it
    AirBench(EventLoop& eventLoop, sim::Board& nearBoard);
    ~AirBench();

    /// Throws Failure for a statement that the air does not know.
    void state(std::string_view statement);

  private:
    void plan();

    EventLoop& loop;
    sim::Air air;
    EventLoop::TimerId timer = 0;
};

} // namespace zor::testing
