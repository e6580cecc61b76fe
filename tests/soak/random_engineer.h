// SPDX-License-Identifier: MIT
#pragma once

#include "soak/dice.h"
#include "transcript_runner/world.h"

#include <string>
#include <vector>

namespace zor {
class Element;
class Form;
} // namespace zor

namespace zor::testing {

/// Somebody at the bench who does anything to anything: gestures on whatever stands on the screen, faults of
/// the board and of the line, boxes that stay open, files that are not what they should be. Says what he does
/// in the language of transcripts, so that a run which went wrong is a transcript already. The same seed, the
/// same run.
class RandomEngineer : private Dice {
  public:
    explicit RandomEngineer(unsigned seed)
        : Dice(seed) {}

    /// What stands on the bench before the program starts, hostile files among it.
    [[nodiscard]] std::vector<std::string> preparations();
    /// The next statement, for the world as it is.
    [[nodiscard]] std::string next(const World& world);

  private:
    std::string gesture(const World& world);
    std::string gestureOn(const Element& element, const std::string& name);
    std::string toWindow(const Form& form);
    std::string fault();
    std::string answer();
    std::string someText();
    std::string someFile();
};

} // namespace zor::testing
