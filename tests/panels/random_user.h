// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"

#include <random>

namespace zor::testing {

/// A user who sets every setting of a panel to something that it offers; the same seed, the same settings.
class RandomUser {
  public:
    explicit RandomUser(unsigned seed)
        : random(seed) {}

    /// Acts on each element of the panel that takes a setting, in an order of his own, and may be refused.
    void set(Form& panel);

  private:
    int upTo(int highest);
    void set(Element& element);

    std::mt19937 random;
};

} // namespace zor::testing
