// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/list_box.h"
#include "elements/plot.h"
#include "elements/tick_box.h"
#include "platform/event_loop.h"

#include <deque>

namespace zor {

class SPI;

/// How the error rates of the FIFO test have gone, read by read: the counters tell only where they stand.
class ErrorRates {
  public:
    /// So many reads are kept.
    static constexpr std::size_t kept = 1000;

    explicit ErrorRates(SPI& ownTool);

    Plot RatePlot;
    /// Bit errors or packet errors.
    ListBox RateKind;
    /// Over the reads' numbers or over the time.
    ListBox RateAxis;
    TickBox RateLogScale;
    Button SaveRates;

    /// Another read was counted; takes the rates from the counters.
    void add();
    /// The counters begin anew.
    void clear();

  private:
    struct Read {
        double number;
        double seconds;
        double bitErrorRate;
        double packetErrorRate;
    };
    void show();
    [[nodiscard]] PlotPoint pointOf(const Read& read) const;

    SPI& tool;
    std::deque<Read> reads;
    double count = 0;
    EventLoop::Duration begun{};
};

} // namespace zor
