// SPDX-License-Identifier: MIT
#pragma once

#include "transcript_runner/world.h"

#include <random>
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
class RandomEngineer {
  public:
    explicit RandomEngineer(unsigned seed)
        : random(seed) {}

    /// What stands on the bench before the program starts, hostile files among it.
    [[nodiscard]] std::vector<std::string> preparations();
    /// The next statement, for the world as it is.
    [[nodiscard]] std::string next(const World& world);

  private:
    int upTo(int highest);
    bool oneIn(int times) { return upTo(times - 1) == 0; }
    template <class Choices>
    const auto& oneOf(const Choices& choices) {
        return choices[static_cast<std::size_t>(upTo(static_cast<int>(std::size(choices)) - 1))];
    }

    std::string gesture(const World& world);
    std::string gestureOn(const Element& element, const std::string& name);
    std::string toWindow(const Form& form);
    std::string fault();
    std::string answer();
    std::string someText();
    std::string someFile();

    std::mt19937 random;
};

} // namespace zor::testing
