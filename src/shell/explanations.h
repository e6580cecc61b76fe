// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zor {

class Element;

/// What a control is for, in a sentence without its point; empty for one that the table does not know. It
/// stands on the screen where the control has no tip of its own.
[[nodiscard]] std::string purposeOf(const Element& element);

/// What a setting may be, with its unit, and where a chip's word holds it: "Bits 2:0 of Configuration
/// Setting: 30 kHz to 240 kHz". Read from the chip's own tables as the panel is set now; empty for what is no
/// setting.
[[nodiscard]] std::string rangeOf(const Element& element);

/// The table behind purposeOf: a row a control, by "Form.Element", by "panel.Element" for what chip panels
/// share, or by the element's name alone; without an index.
[[nodiscard]] const char* purposeInTable(std::string_view key);

} // namespace zor
