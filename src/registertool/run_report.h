// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"
#include "platform/event_loop.h"

#include <cstddef>
#include <string>

namespace zor {

class SPI;

/// The line at the foot of the register tool: what a long action is at, and what came of it. A script says
/// its own line in front of what an action inside it is at.
class RunReport {
  public:
    explicit RunReport(SPI& ownTool);

    Label Doing;

    /// An action has begun; its time counts from here.
    void begin();
    /// What it is at: "reading the receive FIFO, byte", 41, 64.
    void at(std::string what, std::size_t done, std::size_t total);
    /// What came of it: "46 registers read", with the time that it took.
    /// @param remark  what else there is to say; may be empty
    void end(const std::string& outcome, const std::string& remark = {});
    /// What came of something that took no time.
    void say(const std::string& outcome);
    /// The tool is free again: an action that has told no outcome did not come to its end.
    void free();

    /// A script is at a line: "Packet loop: round 3, line 5 of 6".
    void atScript(std::string what);
    void endScript(const std::string& outcome);

  private:
    void show(std::string text);

    SPI& tool;
    std::string script;
    EventLoop::Duration begun{};
    bool underWay = false;
};

} // namespace zor
