// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/load_model.h"
#include "simulator/radio_chip.h"
#include "simulator/register_chip.h"
#include "simulator/replies.h"
#include "simulator/serial_eeprom.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zor::sim {

enum class OutputState { released, low, high };

/// Where a generation 2 board leads the radio's raw data line, or that it has left command mode.
enum class DataSelector { internal, external, dataMode };

/// What the modulation line of the radio board carries.
enum class Modulation { stopped, low, high, pseudoRandom };

/// The circuits around a LoadBoard's controller: eight output lines, the serial bus with a chip on it, the
/// supply, the current converter and the two lines that are sampled. The firmware drives it, a bench sets it.
class Hardware {
  public:
    explicit Hardware(BoardKind kind)
        : boardKind(kind) {}
    Hardware(const Hardware&) = delete;
    Hardware& operator=(const Hardware&) = delete;

    /// Lines 0 to 7: data in, clock, chip select and FIFO select of the radio board, then four free ones.
    void drive(std::size_t lineNumber, OutputState state);
    [[nodiscard]] OutputState output(std::size_t lineNumber) const { return outputs.at(lineNumber); }

    /// A transfer with the chip select handled by the board; lines stay as they were.
    /// @return what the chip sent back, byte for byte
    std::vector<std::uint8_t> transfer(const std::vector<std::uint8_t>& bytes);
    /// Bytes on the bus with the selects as they stand.
    void write(const std::vector<std::uint8_t>& bytes);
    /// A byte from the bus with the selects as they stand; an unselected bus floats high.
    std::uint8_t read();

    /// Puts another chip on the bus in place of the radio; it must outlive the board.
    void mount(SpiDevice& device) { bus = &device; }
    /// Puts the register chip on the bus, a new one with all registers 00.
    RegisterChip& fitRegisters();
    /// nullptr if there never was one.
    [[nodiscard]] RegisterChip* registers() const { return registerChip.get(); }
    /// Puts a fresh serial EEPROM on the bus, all FF.
    SerialEeprom& mountEeprom();
    /// Puts the one that was there back on the bus, in place of another chip. @return false if none was
    bool remountEeprom();
    /// Takes it away; its socket stays empty.
    void removeEeprom();
    /// nullptr if none is mounted.
    [[nodiscard]] SerialEeprom* eeprom() { return eepromChip.get(); }
    /// The time that chips measure their delays by; without it none passes.
    ChipClock time = [] { return std::chrono::microseconds{0}; };
    void mountRadio() { mount(radioChip); }
    [[nodiscard]] RadioChip& radio() { return radioChip; }
    [[nodiscard]] const RadioChip& radio() const { return radioChip; }

    /// Sets the supply from the code of the "V" command.
    /// @param code  0 to 254; the voltage is 311 / (255 - code) on generation 1, 309 / (255 - code) on
    /// generation 2
    void setSupplyCode(int code);
    /// Volts; 0 before the first setting.
    [[nodiscard]] double supplyVoltage() const { return supply; }

    CurrentRange currentRange = CurrentRange::high;
    /// 0 to 1023, from the bench's figures where it gave some, else from what the radio's words switched on.
    [[nodiscard]] int converter() const;
    void setCurrentCounts(int high, int low);

    /// The data line's level that a bench sets; what is heard on the air stands over it.
    bool dataLine = false;
    std::function<std::optional<bool>()> receivedLevel;
    [[nodiscard]] bool dataLineLevel() const {
        auto received = receivedLevel ? receivedLevel() : std::nullopt;
        return received.value_or(dataLine);
    }
    /// Puts bytes on the air, where there is one.
    std::function<void(const std::vector<std::uint8_t>& bytes)> radiate;
    bool interruptReleased = true;
    /// The line is active low: false when the bench or the chip pulls it.
    [[nodiscard]] bool interruptLine() const { return interruptReleased && !radioChip.interruptPending(); }

    DataSelector dataSelector = DataSelector::internal;
    Modulation modulation = Modulation::stopped;
    bool dataLineMonitored = false;

  private:
    [[nodiscard]] bool selected(std::size_t lineNumber) const {
        return outputs[lineNumber] == OutputState::low;
    }
    std::uint8_t clock(std::uint8_t byte);

    BoardKind boardKind;
    RadioChip radioChip;
    std::unique_ptr<RegisterChip> registerChip;
    std::unique_ptr<SerialEeprom> eepromChip;
    EmptySocket emptySocket;
    SpiDevice* bus = &radioChip;
    std::array<OutputState, 8> outputs{};
    double supply = 0;
    struct Counts {
        int high;
        int low;
    };
    std::optional<Counts> fixedCounts;
};

} // namespace zor::sim
