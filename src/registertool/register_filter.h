// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/options.h"
#include "elements/tick_box.h"
#include "registertool/filter_query.h"

#include <array>
#include <functional>

namespace zor {

/// Which registers are shown and in which order: the same controls on both pages of the register tool, kept
/// equal. A 2 marks those of the second page.
class RegisterFilter {
  public:
    explicit RegisterFilter(Form& form);

    OptionGroup OrderBy;
    Option ByName;
    Option ByAddress;
    TickBox ENRF;
    TickBox ENTest;
    TickBox ENDigital;
    TickBox ENMisc;
    Button ViewAll;

    OptionGroup OrderBy2;
    Option ByName2;
    Option ByAddress2;
    TickBox ENRF2;
    TickBox ENTest2;
    TickBox ENDigital2;
    TickBox ENMisc2;
    Button ViewAll2;

    [[nodiscard]] RegisterClasses classes() const;
    [[nodiscard]] RegisterOrder order() const;
    /// Ticks all eight boxes; no action runs.
    /// @return whether one was not ticked
    bool tickAll();

    /// A class or the order was chosen.
    std::function<void()> onChange;
    /// ViewAll; behind a change of boxes onChange has run.
    std::function<void()> onReread;

  private:
    void followEachOther(TickBox& one, TickBox& two);
    void ViewAll_Click();
    [[nodiscard]] std::array<TickBox*, 8> boxes();
};

} // namespace zor
