// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// The files that the user loaded or saved, newest first, at most ten of a kind. A kind is what a name's
/// extension says, its case aside.
class RecentFiles {
  public:
    static constexpr std::size_t most = 10;

    /// The file was loaded or saved just now.
    void use(const std::string& path);
    /// It cannot be used any more.
    void forget(const std::string& path);
    /// What an earlier run left, newest first.
    void restore(const std::vector<std::string>& paths);

    [[nodiscard]] const std::vector<std::string>& all() const { return paths; }
    /// Those of one kind.
    [[nodiscard]] std::vector<std::string> ofKind(std::string_view extension) const;
    /// The one of that kind that was used last; empty if there is none.
    [[nodiscard]] std::string last(std::string_view extension) const;

    Signal<> changed;

  private:
    void put(const std::string& path);

    std::vector<std::string> paths;
};

/// What stands behind the last point of a path's name, in lower case.
[[nodiscard]] std::string kindOfFile(const std::string& path);

} // namespace zor
