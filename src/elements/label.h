// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"

namespace zor {

/// A caption; a few labels act on a click.
class Label : public Button {
  public:
    Label(Form& owner, std::string name, std::string caption = {})
        : Button(owner, std::move(name), std::move(caption)) {
        takesFocusOnClick = false;
    }
};

/// A titled or plain group that hides and disables what stands in it. A few act on a click beside what stands
/// in them.
class Frame : public Element {
  public:
    Frame(Form& owner, std::string name, std::string caption = {});

    [[nodiscard]] bool bordered() const { return hasBorder; }
    void setBordered(bool border);

    bool click() override;
    std::function<void()> onClick;

  private:
    bool hasBorder = true;
};

/// A patch of colour that other elements take theirs from.
class Swatch : public Element {
  public:
    Swatch(Form& owner, std::string name, Colour colour);
};

/// An indicator of one bit: lit or dark, its caption greyed while dark.
class Lamp : public Element {
  public:
    Lamp(Form& owner, std::string name, std::string caption);

    [[nodiscard]] bool lit() const { return isLit; }
    /// Lights or darkens it, with the background of the swatch that stands for that state; a dark lamp is
    /// disabled.
    void paint(bool lit, const Swatch& colour);
    /// Lights or darkens it, with a colour of its own or a view's; whether it is enabled is another matter.
    void light(bool lit, std::optional<Colour> colour = std::nullopt);

  private:
    bool isLit = false;
};

} // namespace zor
