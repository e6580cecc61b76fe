// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "link/bench.h"

#include <functional>
#include <vector>

namespace zor {

class ChipPanel;

/// The chip panel on the screen, for a window that works with it and stays when it goes.
class OpenPanel {
  public:
    /// @param onOther  another panel has come, or none is left; also once it shows another variant
    OpenPanel(Bench& ownBench, std::function<void()> onOther);

    /// nullptr while none is open.
    [[nodiscard]] ChipPanel* get() const { return panel; }
    /// Looks again now.
    void look();
    void end();

  private:
    Bench& bench;
    std::function<void()> tell;
    ChipPanel* panel = nullptr;
    std::string title;
    Subscription opening;
    std::vector<Subscription> following;
};

} // namespace zor
