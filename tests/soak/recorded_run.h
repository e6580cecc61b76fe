// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace zor::testing {

/// What a session came to.
struct RecordedRun {
    /// How the played session differs from the recorded one; empty if it does not.
    std::string difference;
    /// The session as it was recorded, bench and all.
    std::string transcript;
    std::size_t gestures = 0;
    /// Something in the session had no end of its own (a script in a loop): there is nothing to compare.
    bool endless = false;
};

/// Lets a random engineer work with a good board for so many steps, records him, and plays the record on a
/// fresh bench of the same kind: the same lines must reach the boards, and the same files must be left.
[[nodiscard]] RecordedRun recordAndPlay(unsigned seed, int steps);

} // namespace zor::testing
