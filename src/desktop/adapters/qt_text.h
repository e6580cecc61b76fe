// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace zor {

/// Text of the core on the screen. It is UTF-8; bytes that are not (a noisy line, an old file) show as
/// Latin-1.
[[nodiscard]] QString toQt(std::string_view text);
[[nodiscard]] std::string fromQt(const QString& text);

/// The same with the toolkit's line ends (LF) for the core's (CR LF).
[[nodiscard]] QString linesToQt(std::string_view text);

/// A caption for a widget that takes '&' for a mnemonic, where ours means the character itself.
[[nodiscard]] QString literalCaption(std::string_view caption);
/// The same where '&' in front of a letter or digit is a mnemonic, and any other the character itself.
[[nodiscard]] QString mnemonicCaption(std::string_view caption);

} // namespace zor
