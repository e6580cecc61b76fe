// SPDX-License-Identifier: MIT
// Where a search for transmitters goes and what it makes of what it hears. It has no board and no clock: who
// has them sets the chip as `next` says, waits, and hands the status over.
#pragma once

#include "rftools/search_rates.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace zor {

/// What the chip is set to for one reading.
struct SearchSetting {
    /// Frequency parameter F.
    int frequency = 0;
    /// Code of the signal threshold, 0 to 7.
    int threshold = 0;
    /// Place of the data rate among the plan's; nothing while it does not matter.
    std::optional<std::size_t> rate;
    /// The frequency control runs up to the reading, so that the offset is one of this setting.
    bool offset = false;
};

/// What the status said.
struct SearchReading {
    bool signal = false;
    bool clockLocked = false;
    /// In steps of F; nothing from a chip that does not tell it.
    std::optional<int> offset;
};

/// A frequency of the sweep and the highest threshold that the signal there reached; nothing below the limit.
struct SearchedPoint {
    int frequency = 0;
    std::optional<int> threshold;
    friend bool operator==(const SearchedPoint&, const SearchedPoint&) = default;
};

struct FoundCarrier {
    /// Frequency parameter, with what the offset says between two steps.
    double frequency = 0;
    /// Where the chip was tuned, and how far off the carrier was: the mean, and from the least to the most.
    int tuned = 0;
    std::optional<double> offset;
    double spread = 0;
    int threshold = 0;
    /// In so many of the readings the signal was there.
    int seen = 0;
    int readings = 0;
    enum class Rate { NotTried, None, Locked } rateState = Rate::NotTried;
    RateSetting rate;
};

/// The sweep over a span, and at each signal what it comes to:
///
///     sweep --signal--> level --threshold not reached--> sweep
///       |  silence behind signals, or the span's end
///       +--> centre --offset small--> measure --half of the readings or more--> rate --> sweep, or done
///                                        |  rarely there                                  ^
///                                        +------------------------------------------------+
class SearchPlan {
  public:
    struct Span {
        int from = 0;
        int to = 0;
        int step = 1;
        /// The least threshold that counts as a signal.
        int threshold = 0;
        /// Two carriers that lie no further apart are one: a quarter of the bandwidth, in steps of F.
        int resolution = 1;
        /// F's own ends.
        int lowest = 96;
        int highest = 3903;
    };
    enum class Phase { Sweep, Level, Centre, Measure, Rate, Done };

    static constexpr int readingsOfCarrier = 8;
    /// So many readings in a row have to find the clock locked.
    static constexpr int locksOfRate = 3;

    /// @param trials  the data rates to try at a carrier; none leaves its rate open
    SearchPlan(const Span& ownSpan, std::vector<RateSetting> trials);

    [[nodiscard]] Phase phase() const { return ownPhase; }
    [[nodiscard]] bool done() const { return ownPhase == Phase::Done; }
    /// What to set next; of no meaning once it is done.
    [[nodiscard]] const SearchSetting& next() const { return setting; }
    void take(const SearchReading& reading);

    [[nodiscard]] const std::vector<RateSetting>& rates() const { return trials; }
    [[nodiscard]] const std::vector<SearchedPoint>& points() const { return swept; }
    [[nodiscard]] const std::vector<FoundCarrier>& carriers() const { return found; }
    /// Points of the whole sweep.
    [[nodiscard]] int pointCount() const;

  private:
    struct Candidate {
        int frequency = 0;
        int threshold = 0;
    };

    void takeSweep(bool signal);
    void takeLevel(bool signal);
    void takeCentre(const SearchReading& reading);
    void takeMeasure(const SearchReading& reading);
    void takeRate(bool locked);
    void record(int threshold);
    void goOn();
    void closeStretch();
    void lookBeside();
    void nextCandidate();
    void finishMeasuring();
    void begin(Phase phase, int frequency);
    [[nodiscard]] bool known(double frequency) const;

    Span span;
    std::vector<RateSetting> trials;
    Phase ownPhase = Phase::Sweep;
    SearchSetting setting;
    /// Where the sweep stands.
    int at = 0;
    std::vector<SearchedPoint> swept;
    /// The points in a row with a signal, up to now.
    std::vector<Candidate> stretch;
    /// Those of the last signals in a row, until it is clear which carriers they are.
    std::vector<Candidate> unexplained;
    /// What is left to look at, the next one last.
    std::vector<Candidate> waiting;
    Candidate candidate;
    int centred = 0;
    std::vector<int> offsets;
    FoundCarrier measured;
    int locks = 0;
    std::vector<FoundCarrier> found;
};

} // namespace zor
