// SPDX-License-Identifier: MIT
#include "elements/desk.h"
#include "transcript/live_scene.h"
#include "transcript/statements.h"
#include "transcript/transcript.h"
#include "virtual/virtual_bench.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

using namespace zor::transcript;

/// A statement that was read is the same once it was written and read again.
void writeAndRead(const Statement& statement) {
    std::string line;
    for (const Token& token : statement.tokens) {
        line += (line.empty() ? "" : " ") + (token.quoted ? asQuoted(token.text) : token.text);
    }
    std::vector<Token> again = tokensOf(line);
    if (again.size() != statement.tokens.size()) {
        std::abort();
    }
    for (std::size_t at = 0; at < again.size(); ++at) {
        if (again[at].text != statement.tokens[at].text || again[at].quoted != statement.tokens[at].quoted) {
            std::abort();
        }
    }
}

} // namespace

/// Any text as a transcript: it is read or refused with a line of its own, and no form of a statement is
/// looked at beyond its end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zor::testing::VirtualBench bench;
    static LiveScene scene(bench.main(), bench.watchedDialogs, bench.folder.path());
    std::string text(reinterpret_cast<const char*>(data), size);
    auto lines = static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1;
    try {
        std::vector<Statement> statements = readTranscript(text);
        for (const Statement& statement : statements) {
            if (statement.line < 1 || statement.line > lines || statement.tokens.empty()) {
                std::abort();
            }
            writeAndRead(statement);
        }
        checkForms(scene, statements);
    } catch (const LineFailure& failure) {
        if (failure.line < 1 || failure.line > lines) {
            std::abort();
        }
    }
    return 0;
}
