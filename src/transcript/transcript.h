// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zor::transcript {

/// What was expected and what was found; the runner puts the file and line in front.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A failure of a certain line.
struct LineFailure : Failure {
    LineFailure(int failedLine, const std::string& what)
        : Failure(what)
        , line(failedLine) {}
    int line;
};

/// One word or quoted text of a statement.
struct Token {
    std::string text;
    bool quoted = false;
};

/// One statement as it stands in the file.
struct Statement {
    int line = 0;
    std::vector<Token> tokens;
    /// The lines between this one and its `end`, where it has them.
    std::vector<std::string> block;
};

/// Cuts a line into its tokens, without the comment. Throws Failure for a text without an end or an unknown
/// escape.
[[nodiscard]] std::vector<Token> tokensOf(std::string_view line);

/// All statements of a transcript. Throws LineFailure for a line that cannot be read.
[[nodiscard]] std::vector<Statement> readTranscript(std::string_view text);

/// A text as it would stand in a transcript, with quotes and escapes.
[[nodiscard]] std::string asQuoted(std::string_view text);

} // namespace zor::transcript
