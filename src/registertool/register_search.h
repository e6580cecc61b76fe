// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"
#include "elements/text_field.h"
#include "registertool/setting_table.h"

namespace zor {

class SPI;

/// Every word of a text is found in the register's name, in a bit's name or in its description, or the
/// address begins with it. Letters count alike in either case; a text without words fits every register.
[[nodiscard]] bool fitsSearch(const Setting& setting, std::string_view text);

/// What is typed narrows the list of registers, beside the classes that are ticked.
class RegisterSearch {
  public:
    explicit RegisterSearch(SPI& ownTool);

    TextField Search;
    /// "12 of 46"
    Label ShownCount;

    [[nodiscard]] bool wants(const Setting& setting) const { return fitsSearch(setting, Search.text()); }

  private:
    void showCount();

    SPI& tool;
    Subscription stored;
    Subscription showsOthers;
};

} // namespace zor
