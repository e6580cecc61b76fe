// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board_control.h"
#include "simulator/far_end.h"
#include "simulator/radio_station.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zor::sim {

/// The air over a bench: the boards that are on it, and perhaps a far end beside the first of them.
class Air {
  public:
    explicit Air(std::uint32_t seed = 1)
        : space(seed) {}

    /// @param board  must outlive the air
    void add(Board& board);
    /// Puts the far end beside the first board.
    void addFarEnd();
    [[nodiscard]] Ether& ether() { return space; }
    [[nodiscard]] FarEnd* farEnd() { return far.get(); }
    /// @param index  in the order of `add`
    [[nodiscard]] RadioStation& station(std::size_t index) { return *stations.at(index); }
    [[nodiscard]] std::size_t stationCount() const { return stations.size(); }

  private:
    Ether space;
    Board* first = nullptr;
    std::vector<std::unique_ptr<RadioStation>> stations;
    std::unique_ptr<FarEnd> far;
};

/// Carries out one statement about the air, for example "loss 95" or "far numbered 500".
/// @param index  the board that the statement is given for
/// @return nothing if the statement is not about the air
[[nodiscard]] std::optional<ControlResult> airControl(Air& air, std::size_t index,
                                                      std::string_view statement);

/// The statements, one a line, as help shows them.
[[nodiscard]] std::string airControlHelp();

} // namespace zor::sim
