// SPDX-License-Identifier: MIT
#pragma once

#include "elements/history.h"
#include "panels/common/control_word.h"

namespace zor {

/// The second byte of the synchron pattern, on the chips that let it be chosen: its field and its word. A
/// part of the panel that owns it.
class SynchronPattern {
  public:
    /// @param base  the word with an empty byte
    SynchronPattern(Form& owner, std::uint32_t base);
    SynchronPattern(const SynchronPattern&) = delete;
    SynchronPattern& operator=(const SynchronPattern&) = delete;

    /// Two hexadecimal digits. Zero, nothing or anything else stands for "D4", the chips' own pattern.
    TextField TB_SP;
    ControlWord SynchPatt;

    /// The field's commit action.
    void TB_SP_LostFocus();
    /// For the steps back.
    [[nodiscard]] KeptPart kept();

  private:
    std::uint32_t pattern = 0xD4;
};

} // namespace zor
