// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

namespace zor {

/// Something with a whole number in a range; a number beyond takes the nearer end.
class Ranged : public Element {
  public:
    Ranged(Form& owner, std::string name, int minimum, int maximum, int value);

    [[nodiscard]] int value() const { return current; }
    [[nodiscard]] int minimum() const { return lowest; }
    [[nodiscard]] int maximum() const { return highest; }
    /// Sets the number; no action runs.
    void putValue(int value);
    /// A maximum under the minimum leaves room for the minimum alone.
    void setRange(int minimum, int maximum);

  private:
    int lowest;
    int highest;
    int current;
};

/// A slider; its action runs while it moves and at its end, on a change.
class Slider : public Ranged {
  public:
    using Ranged::Ranged;

    /// Sets the number and runs the action if it changed.
    void setValue(int value);
    bool slide(int value) override;

    /// Whoever lives by the number hears of it before the window's own action.
    Signal<> moved;
    std::function<void()> onChange;
};

/// Two small arrows beside a field.
class UpDown : public Element {
  public:
    UpDown(Form& owner, std::string name)
        : Element(owner, std::move(name)) {}

    bool stepUp() override;
    bool stepDown() override;

    /// The number that it steps, as its field says it now; 0 if it steps none.
    [[nodiscard]] int value() const { return reading ? reading() : 0; }

    std::function<int()> reading;
    std::function<void()> onUp;
    std::function<void()> onDown;
};

/// How far a long run has come.
class Progress : public Ranged {
  public:
    using Ranged::Ranged;
};

} // namespace zor
