// SPDX-License-Identifier: MIT
#pragma once

#include "eeprom/event_routine.h"
#include "elements/text_field.h"

namespace zor {

/// A field of hexadecimal digits: what is typed and is no digit goes at once, the rest goes to upper case.
class DigitField : public TextField {
  public:
    DigitField(Form& owner, std::string name, std::string text = {});

    /// Puts a text there as it is; the filter is for the user's changes.
    void put(std::string text);
    void putBack(std::string text) override { put(std::move(text)); }
    /// What the filter leaves in place of nothing.
    void setEmptied(std::string text) { emptied = std::move(text); }
    /// Switches the filter on and off: a field may show characters instead.
    void setFiltered(bool on) { filtered = on; }

    /// The user changed it, and the filter has been over it.
    std::function<void()> onDigits;

  private:
    void filter();

    std::string before;
    std::string emptied;
    bool filtered = true;
};

} // namespace zor
