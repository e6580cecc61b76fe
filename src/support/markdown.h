// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// The headings of a Markdown text that begin with so many number signs, in their order. Fenced code has
/// none.
[[nodiscard]] std::vector<std::string> headingsOf(std::string_view markdown, int level);

/// A heading as a link names it: lower case, letters, digits and marks that stay; blanks become hyphens.
[[nodiscard]] std::string anchorOf(std::string_view heading);

/// The documents that a text links to, as its links name them without their anchors, each once, in the order
/// of their first mention.
[[nodiscard]] std::vector<std::string> linkedDocuments(std::string_view markdown);

/// What a reader of the text sees of it, in small letters and in one line: no marks, no targets of links.
[[nodiscard]] std::string readableText(std::string_view markdown);

} // namespace zor
