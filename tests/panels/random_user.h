// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "elements/text_field.h"

#include <random>
#include <string>

namespace zor::testing {

/// A user who sets every setting of a panel to something that it offers; the same seed, the same settings.
class RandomUser {
  public:
    explicit RandomUser(unsigned seed)
        : random(seed) {}

    RandomUser(const RandomUser&) = delete;
    RandomUser& operator=(const RandomUser&) = delete;
    virtual ~RandomUser() = default;

    /// Acts on each element of the panel that takes a setting, in an order of his own, and may be refused.
    void set(Form& panel);
    /// Acts on this one, if it takes a setting.
    void set(Element& element);

  protected:
    [[nodiscard]] int upTo(int highest);
    [[nodiscard]] std::string anyNumber();
    /// Types a number and Enter; another user may have other habits.
    virtual void typeIn(TextField& field);

  private:
    std::mt19937 random;
};

} // namespace zor::testing
