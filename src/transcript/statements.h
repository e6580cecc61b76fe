// SPDX-License-Identifier: MIT
#pragma once

#include "transcript/scene.h"
#include "transcript/transcript.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace zor {
class Grid;
} // namespace zor

namespace zor::transcript {

/// What stands behind a statement's name.
class Arguments {
  public:
    explicit Arguments(const Statement& whole, std::size_t first = 1)
        : statement(whole)
        , begin(first) {}

    [[nodiscard]] std::size_t count() const { return statement.tokens.size() - begin; }
    /// Throws Failure if there is no such argument.
    [[nodiscard]] const std::string& text(std::size_t position) const;
    /// The argument is this word, not in quotes.
    [[nodiscard]] bool isWord(std::size_t position, std::string_view word) const;
    /// Throws Failure if the argument is not a number of the range.
    [[nodiscard]] int integer(std::size_t position, int lowest, int highest) const;
    /// Throws Failure if the argument is not two hexadecimal digits.
    [[nodiscard]] std::uint8_t hexByte(std::size_t position) const;
    /// Throws Failure if the argument is not hexadecimal of at most so many digits.
    [[nodiscard]] std::uint32_t hexNumber(std::size_t position, std::size_t digits) const;
    /// Bytes of two hexadecimal digits each, blanks between them or not. Throws Failure for anything else.
    [[nodiscard]] std::vector<std::uint8_t> hexBytes(std::size_t position) const;
    /// Throws Failure if the argument is not a decimal number.
    [[nodiscard]] double number(std::size_t position) const;
    /// Milliseconds, up to ten hours.
    [[nodiscard]] std::chrono::milliseconds milliseconds(std::size_t position) const;
    /// Milliseconds as above, with up to three decimals.
    [[nodiscard]] EventLoop::Duration time(std::size_t position) const;
    /// The arguments from this one on.
    [[nodiscard]] std::vector<std::string> rest(std::size_t position) const;
    [[nodiscard]] const std::vector<std::string>& block() const { return statement.block; }
    [[nodiscard]] const Statement& whole() const { return statement; }
    /// Throws Failure if there are fewer or more arguments.
    void expectCount(std::size_t least, std::size_t most) const;

  private:
    const Statement& statement;
    std::size_t begin;
};

/// One row of the language: a name, how many arguments may stand behind it, and what it does.
struct StatementRow {
    static constexpr std::size_t anyCount = static_cast<std::size_t>(-1);

    std::string_view name;
    std::size_t least;
    std::size_t most;
    void (*carryOut)(Scene& scene, const Arguments& arguments);
};

/// Time, and the answers laid ready for boxes and dialogs.
[[nodiscard]] std::span<const StatementRow> commonStatements();
/// Gestures, which `refused` may stand in front of.
[[nodiscard]] std::span<const StatementRow> gestureStatements();
[[nodiscard]] std::span<const StatementRow> checkStatements();

/// The user could not make the gesture.
struct Refused : Failure {
    using Failure::Failure;
};

/// Throws Failure if the element is no grid.
[[nodiscard]] Grid& gridNamed(Scene& scene, const std::string& name);
/// The column's position. Throws Failure if the grid has none of that caption.
[[nodiscard]] std::size_t columnNamed(const Grid& grid, const std::string& caption);

/// Carries one statement out. Throws Failure.
void carryOut(Scene& scene, const Statement& statement);

/// Throws Failure if the statement is none that this scene knows, or has too little or too much behind it.
void checkForm(const Scene& scene, const Statement& statement);
/// The same for all statements of a transcript. Throws LineFailure.
void checkForms(const Scene& scene, const std::vector<Statement>& statements);
/// What must not be left when a transcript has come to its end: a box that was not seen, a statement whose
/// time has not come. Throws LineFailure.
void checkEnd(Scene& scene, int lastLine);

/// The statement is one that a simulated bench alone can carry out.
[[nodiscard]] bool needsSimulatedBench(std::string_view statement);

} // namespace zor::transcript
