// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace zor {

/// A stretch of the chip's current: one reading, or several that were merged. Times in s, currents in uA.
struct CurrentStretch {
    double begin = 0;
    double end = 0;
    /// Of the time from begin to end, how much readings stand for.
    double covered = 0;
    double mean = 0;
    double lowest = 0;
    double highest = 0;
    /// False where nothing was measured: the line breaks off.
    bool measured = true;

    friend bool operator==(const CurrentStretch&, const CurrentStretch&) = default;
};

/// What was drawn between two moments.
struct CurrentFigures {
    double seconds = 0; ///< that readings stand for
    double mean = 0;    ///< uA over that time
    double lowest = 0;  ///< uA
    double highest = 0; ///< uA
    double charge = 0;  ///< uAs
};

/// The current over time in bounded memory: 4,096 stretches at most. When they are full the oldest half is
/// merged in pairs, so that a long recording loses sharpness at its beginning and neither its extremes nor
/// its charge.
///
/// A reading stands until the next one, but for no longer than a second.
class CurrentTrace {
  public:
    static constexpr std::size_t capacity = 4096;
    static constexpr double longestHold = 1; // s

    /// @param second  never before the one of the call before
    void add(double second, double microamps);
    /// Nothing is measured from now on until the next reading.
    void addGap(double second);
    void clear() { held.clear(); }

    [[nodiscard]] const std::vector<CurrentStretch>& stretches() const { return held; }
    /// The stretch at a moment: the last one that began by then. nullptr before all.
    [[nodiscard]] const CurrentStretch* at(double second) const;
    /// Nothing where nothing was measured between them.
    [[nodiscard]] std::optional<CurrentFigures> between(double from, double to) const;

  private:
    void endLast(double second);
    void makeRoom();

    std::vector<CurrentStretch> held;
};

} // namespace zor
