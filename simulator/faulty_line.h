// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line_end.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>

namespace zor::sim {

/// What goes wrong between a board and the PC. Rates are chances from 0 to 1.
struct FaultPlan {
    /// Every answer comes so much later.
    std::chrono::milliseconds delay{0};
    /// After so many answers the board says nothing any more.
    std::optional<std::size_t> muteAfter = std::nullopt;
    /// Of answers that end in the success prompt: only the error prompt comes, although the command was
    /// carried out.
    double refusalRate = 0;
    /// Per character of an answer: a character of garbage, 0x00 to 0xFF, comes in front of it.
    double noiseRate = 0;
    /// Answers come in pieces of so many characters; 0 leaves them whole.
    std::size_t splitEvery = 0;
    /// From one piece to the next.
    std::chrono::milliseconds splitGap{20};
    /// Comes behind each answer, as a board that ends its prompts otherwise would have it.
    std::string trail;
    /// The same seed and the same answers give the same faults.
    std::uint32_t seed = 1;
};

/// Faults in front of any board: what the PC says goes through untouched, what the board says suffers the
/// plan.
class FaultyLine : public LineEnd {
  public:
    /// Takes over the board's `transmit`.
    /// @param behind  must outlive the line
    FaultyLine(LineEnd& behind, const FaultPlan& faults);
    ~FaultyLine() override;

    void receive(char byte) override { board.receive(byte); }
    void lineOpened() override { board.lineOpened(); }
    void lineSpeedChanged(int baud) override { board.lineSpeedChanged(baud); }
    void breakReceived() override { board.breakReceived(); }

  private:
    void pass(const Transmission& transmission);
    void send(std::string bytes, std::chrono::milliseconds delay);
    [[nodiscard]] std::string withNoise(const std::string& bytes);
    [[nodiscard]] bool happens(double rate);

    LineEnd& board;
    FaultPlan plan;
    std::mt19937 random;
    std::size_t answers = 0;
};

} // namespace zor::sim
