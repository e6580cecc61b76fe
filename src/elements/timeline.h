// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <string>
#include <vector>

namespace zor {

/// What goes on for a while before the next thing does.
struct TimelinePhase {
    std::string caption;
    double seconds = 0;
    /// How high it stands, 0 to 1.
    double level = 0;
    friend bool operator==(const TimelinePhase&, const TimelinePhase&) = default;
};

/// Phases that come one after the other and then from the first again; a single one goes on for ever. A view
/// draws them over time.
class Timeline : public Element {
  public:
    Timeline(Form& owner, std::string name);

    [[nodiscard]] const std::vector<TimelinePhase>& phases() const { return ownPhases; }
    void setPhases(std::vector<TimelinePhase> phases);
    /// In s; 0 for none and for a single phase.
    [[nodiscard]] double period() const;

    /// "receive 15 ms, wake-up timer 285 ms, again each 300 ms"; "always: receive".
    [[nodiscard]] std::string text() const override;

  private:
    std::vector<TimelinePhase> ownPhases;
};

/// A time as it is said: three digits and the unit that suits them, from "1.04 us" to "12.3 years".
[[nodiscard]] std::string durationText(double seconds);

} // namespace zor
