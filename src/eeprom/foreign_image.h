// SPDX-License-Identifier: MIT
// Images as other tools make them: Intel HEX and raw binary.
#pragma once

#include <string>
#include <string_view>

namespace zor {

/// The digits of a foreign file's image, in lower case, from address 0 on; what an Intel HEX file leaves out
/// is ff.
///
/// A file is Intel HEX if it bears that name, or if it bears no other known one and begins with a record; a
/// file named ".bin" and any other is raw.
/// Throws ToolError: emptyFile; typeMismatch with the line of a record that cannot be read; overflow with the
/// count of bytes if there are more than the EEPROM has.
/// @param extension  of the file's name, in lower case and with its point
[[nodiscard]] std::string foreignImageDigits(std::string_view bytes, std::string_view extension);

/// The bytes of a file for an image: raw for the extension ".bin", else Intel HEX, 16 bytes a record.
/// Throws ToolError: emptyFile without a digit, typeMismatch for half a byte at the end, overflow as above.
[[nodiscard]] std::string foreignImageBytes(std::string_view digits, std::string_view extension);

} // namespace zor
