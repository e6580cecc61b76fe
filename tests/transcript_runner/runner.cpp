// SPDX-License-Identifier: MIT
#include "transcript_runner/runner.h"

#include "transcript_runner/world.h"

#include <fstream>
#include <iterator>
#include <ostream>

namespace zor::testing {

namespace {

/// Throws LineFailure.
void play(World& world, const std::vector<Statement>& statements) {
    checkForms(world, statements);
    for (const Statement& statement : statements) {
        try {
            carryOut(world, statement);
        } catch (const std::exception& failure) {
            // A late one came first, in the middle of what failed.
            throw world.lateFailure.value_or(LineFailure(statement.line, failure.what()));
        }
        if (world.lateFailure) {
            throw LineFailure(*world.lateFailure);
        }
    }
    checkEnd(world, statements.empty() ? 1 : statements.back().line);
}

} // namespace

bool passes(const std::string& name, std::ostream& output) {
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        output << name << ":1: expected a transcript, found no such file\n";
        return false;
    }
    std::string text{std::istreambuf_iterator<char>(file), {}};
    try {
        std::vector<Statement> statements = readTranscript(text);
        World world;
        play(world, statements);
    } catch (const LineFailure& failure) {
        output << name << ":" << failure.line << ": " << failure.what() << "\n";
        return false;
    }
    output << "ok " << name << "\n";
    return true;
}

} // namespace zor::testing
