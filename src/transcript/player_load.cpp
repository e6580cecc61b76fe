// SPDX-License-Identifier: MIT
// A transcript read for playing: every line looked at, none carried out.
#include "host/files.h"
#include "transcript/player.h"
#include "transcript/statements.h"

#include <algorithm>
#include <utility>

namespace zor::transcript {

namespace {

/// Far beyond what a person writes or records in a day.
constexpr std::uintmax_t longestFile = 64U << 20;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < text.size();) {
        std::size_t to = std::min(text.find('\n', from), text.size());
        lines.push_back(text.substr(from, to - from));
        if (lines.back().ends_with('\r')) {
            lines.back().pop_back();
        }
        from = to + 1;
    }
    return lines;
}

} // namespace

void Player::load(const std::filesystem::path& path) {
    std::string text = readFile(path, longestFile);
    std::vector<Statement> read = readTranscript(text);
    std::filesystem::path folder = std::filesystem::absolute(path).parent_path();
    checkForms(LiveScene(main, watched, folder), read);
    std::vector<std::string> lines = linesOf(text);
    std::vector<PlayedLine> fresh;
    for (const Statement& statement : read) {
        PlayedLine line;
        line.line = statement.line;
        line.text = lines.at(static_cast<std::size_t>(statement.line) - 1);
        fresh.push_back(std::move(line));
    }
    scene.reset();
    statements = std::move(read);
    played = std::move(fresh);
    ownFile = std::filesystem::absolute(path);
    at = 0;
    failed = 0;
    setState(State::Ready);
}

} // namespace zor::transcript
