// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>

namespace zor::testing {

/// Plays one transcript and says how it went: "ok FILE", or the line and what was expected and found there.
bool passes(const std::string& name, std::ostream& output);

} // namespace zor::testing
