// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "headergen/header_block.h"

#include <string>
#include <vector>

namespace zor {

class Form;

/// Which words of a header the chip does not have: those that differ from what its panel sent last. Follows
/// the panel until that closes.
class UnsentWords {
  public:
    /// Takes the words of a header that was just made.
    void follow(Form& panel, const HeaderBlocks& blocks);
    /// There is no header any more.
    void forget();

    /// There is a header, and the panel that it was made of.
    [[nodiscard]] bool following() const { return !words.empty(); }
    /// The macros' names behind the prefix, in the header's order.
    [[nodiscard]] std::vector<std::string> commands() const;

    /// A word was sent, or the panel has closed.
    Signal<> changed;

  private:
    struct Word {
        const ControlWord* element;
        std::string command;
        /// As the header has it.
        std::string text;
    };

    std::vector<Word> words;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
