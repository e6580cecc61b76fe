// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"

#include <string>
#include <string_view>
#include <vector>

namespace zor::sim {

/// A board on a line without time: what it says is collected as it says it.
struct BoardOnLine {
    explicit BoardOnLine(BoardKind kind = BoardKind::LoadBoard2)
        : board(kind) {
        board.transmit = [this](const Transmission& transmission) {
            said += transmission.bytes;
            delays.push_back(transmission.delay.count());
        };
        board.lineReceived = [this](const std::string& line) { lines.push_back(line); };
        board.lineFeedFollowed = [this] { lines.back() += "\n"; };
    }

    void write(std::string_view bytes) {
        for (char byte : bytes) {
            board.receive(byte);
        }
    }

    /// What the board says to a line.
    std::string ask(std::string_view line) {
        said.clear();
        write(line);
        write("\r");
        return said;
    }

    Board board;
    std::string said;
    std::vector<std::string> lines;
    std::vector<long> delays;
};

/// `count` characters of an answer from a position, 1 being the oldest of its last `window`.
inline std::string at(const std::string& answer, std::size_t window, std::size_t position,
                      std::size_t count) {
    return answer.substr(answer.size() - window + position - 1, count);
}

} // namespace zor::sim
