// SPDX-License-Identifier: MIT
#pragma once

#include "elements/kept_text.h"

#include <deque>
#include <string>
#include <string_view>

namespace zor {

/// Puts the lines of a script between the answers to them. They leave the program all at once, but the board
/// takes them one by one: each is told when the prompt of the line before has come.
class ScriptEcho {
  public:
    /// @param receiver  shows the answers, and the lines as its remarks; outlives this
    explicit ScriptEcho(KeptText& receiver);

    /// These lines go to the board behind those that it has not answered yet.
    void sent(std::string_view script);
    /// A line goes whose text stands in the window already.
    void sentTyped();
    /// Nothing of what is still awaited will be answered.
    void forget();

  private:
    void hear(std::string_view text);
    void showFront();

    KeptText& shown;
    /// Awaited prompts, the front one's line is out; those of typed lines are empty.
    std::deque<std::string> awaited;
    /// The end of what came, as long as a prompt.
    std::string tail;
    Subscription hearing;
};

} // namespace zor
