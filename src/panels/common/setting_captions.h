// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zor {

class Element;

/// What a sentence calls a setting of a chip panel: its caption where it has one, else the words that stand
/// beside it ("Centre" for FreqCenter), else its name.
[[nodiscard]] std::string settingCaption(const Element& element);

} // namespace zor
