// SPDX-License-Identifier: MIT
#pragma once

#include "elements/history.h"
#include "elements/signal.h"
#include "panels/common/values.h"

#include <string>

namespace zor {

class Slider;
class TextField;
class UpDown;

/// A whole number that is typed into a field, and may be slid or stepped as well: the controls beside the
/// field write their number into it and run its commit, which calls commit() here to bring them all together
/// again. Owned by the panel, as its elements are.
class LinkedNumber {
  public:
    /// Follows the slider and takes the actions of the arrows, either of which may be missing; the field's
    /// commit stays the panel's.
    LinkedNumber(TextField& ownField, IntegerRange ownRange, Slider* ownSlider, UpDown* arrows);
    LinkedNumber(const LinkedNumber&) = delete;
    LinkedNumber& operator=(const LinkedNumber&) = delete;

    /// Rounds and clamps what the field says, and shows it in the field and on the slider. Runs no action.
    /// @return the number
    int commit();
    /// As the last commit left it.
    [[nodiscard]] int value() const { return number; }
    /// For the steps back.
    [[nodiscard]] KeptPart kept() { return keptPart(number); }

  private:
    void step(int by);
    void enter(std::string text);

    TextField& field;
    IntegerRange range;
    Slider* slider;
    Subscription following;
    int number = 0;
};

} // namespace zor
