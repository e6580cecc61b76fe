// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/board.h"
#include "simulator/ether.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace zor::sim {

/// Somebody at the other end of the bench, without a board of his own to set up: a transceiver that is tuned
/// like the near board's chip whenever it acts. It has no clock: who has one calls `act` at the interval.
class FarEnd : public Station {
  public:
    enum class Mode {
        silent,
        numbered, ///< a packet "PKT 00001", "PKT 00002", ... each time
        echo,     ///< again and again what it heard last
        carrier,  ///< a carrier whose level changes each time
        lively,   ///< the carrier, and what it heard since the last time or else a numbered packet
        beacon,   ///< a carrier at a frequency of its own, with data all the time; see `setBeacon`
    };

    /// Joins the ether and stays until its end. @param nearBoard, @param space  must outlive it
    FarEnd(const Board& nearBoard, Ether& space);
    ~FarEnd() override;

    void setMode(Mode newMode, std::chrono::milliseconds newInterval = std::chrono::milliseconds{1000});
    [[nodiscard]] Mode mode() const { return ownMode; }
    /// Makes it a beacon, which follows nobody's tuning.
    /// @param frequency  Hz, as its own crystal has it
    /// @param dataRate  bit/s; nothing for a bare carrier
    void setBeacon(double frequency, std::optional<double> dataRate);
    /// How long from one `act` to the next; nothing while it has nothing to do.
    [[nodiscard]] std::optional<std::chrono::milliseconds> interval() const;
    void act();

    /// The numbered packet of that number fades away on its way.
    void lose(int packet) { fading.insert(packet); }
    void setCrystalError(double ppm) { crystalError = ppm; }
    /// Packets that it heard, and the bytes of the last.
    [[nodiscard]] int heardCount() const { return heard; }
    [[nodiscard]] const std::vector<std::uint8_t>& lastHeard() const { return last; }

    [[nodiscard]] std::optional<Emission> carrier() const override;
    [[nodiscard]] bool level() override { return high; }
    void hear(const AirPacket& packet) override;

  private:
    [[nodiscard]] std::optional<Emission> emission() const;
    void sendNumbered();
    void sendHeard();

    const Board& near;
    Ether& ether;
    Mode ownMode = Mode::silent;
    std::chrono::milliseconds ownInterval{1000};
    /// No two crystals are alike.
    double crystalError = 12;
    bool high = false;
    bool answerDue = false;
    int number = 0;
    int heard = 0;
    std::set<int> fading;
    std::vector<std::uint8_t> last;
    Emission beacon;
};

/// "silent", "numbered", "echo", "carrier", "lively"; a beacon needs more than its name.
[[nodiscard]] std::optional<FarEnd::Mode> farEndMode(std::string_view name);

} // namespace zor::sim
