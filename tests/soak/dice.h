// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iterator>
#include <random>

namespace zor {

/// What a random engineer decides by: the same seed decides the same.
class Dice {
  protected:
    explicit Dice(unsigned seed)
        : random(seed) {}

    /// Of 0 to the highest, each as likely; 0 for less.
    int upTo(int highest) {
        return highest <= 0 ? 0 : std::uniform_int_distribution<int>(0, highest)(random);
    }
    bool oneIn(int times) { return upTo(times - 1) == 0; }
    template <class Choices>
    const auto& oneOf(const Choices& choices) {
        return choices[static_cast<std::size_t>(upTo(static_cast<int>(std::size(choices)) - 1))];
    }

  private:
    std::mt19937 random;
};

} // namespace zor
