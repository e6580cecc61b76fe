// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

class SPI;

/// Says in the wire's history which register a line reads or writes, by the names of the chosen chip. Every
/// line of the register tool is named; a word that somebody else sends is taken for a register's only while
/// no chip panel is open, and only if the chip has such a register.
class RegisterNaming {
  public:
    explicit RegisterNaming(SPI& ownTool);

    /// The line that the tool waits for, set around its exchange; empty while there is none.
    std::string lineOnItsWay;

  private:
    enum class Sender { Tool, Somebody };
    /// A register of the chip, and the names of those of its bits that are 1.
    struct Named {
        std::string_view name;
        std::string bits;
    };

    [[nodiscard]] std::string meaningOf(std::string_view line, std::string_view answer);
    [[nodiscard]] std::string meaningOfWord(std::uint32_t word, std::string_view answer, Sender sender) const;
    [[nodiscard]] Named namedAt(std::string_view address, std::uint32_t value) const;

    SPI& tool;
    /// The FIFO's select line is low.
    bool fifoSelected = false;
    Subscription naming;
};

} // namespace zor
