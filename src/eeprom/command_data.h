// SPDX-License-Identifier: MIT
// What the command editor works on: which commands an event's routine shall contain, the push-button byte and
// the data rate. Nothing here knows of a window.
#pragma once

#include "eeprom/event_routine.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zor {

/// Commands that can be put into a routine, by their row of the table. There is no command 8.
enum Command : int {
    configurationSetting = 0,
    frequencySetting = 1,
    powerSetting = 2,
    powerManagement = 3,
    lowBatteryDetector = 4,
    dataRateCommand = 5,
    pushButtonCommand = 6,
    wakeUpTimer = 7,
    pllSetting = 9,
};

inline constexpr std::array<Command, 9> everyCommand = {
    configurationSetting, frequencySetting,  powerSetting, powerManagement, lowBatteryDetector,
    dataRateCommand,      pushButtonCommand, wakeUpTimer,  pllSetting};

/// The ticks of every event, kept as the program runs: 16-bit values, a column an event and one more for the
/// chooser of single commands, a row a command. Row 8, which has no command, holds whether the column was
/// saved.
class CommandData {
  public:
    static constexpr int columns = eventCount + 1;
    static constexpr int rows = 10;
    /// The column of the chooser.
    static constexpr int insertColumn = eventCount;

    /// Every cell is 0.
    CommandData() = default;

    /// 0 for a cell beyond the table.
    [[nodiscard]] std::int16_t GetCmdSequenceData(int event, int command) const;
    /// A column that was never saved gives what is recommended for its event.
    [[nodiscard]] bool contains(int event, Command command) const;
    void put(int event, Command command, bool ticked);
    /// Empties a column's commands.
    void clearColumn(int event);

    [[nodiscard]] bool saved(int event) const { return GetCmdSequenceData(event, savedRow) != 0; }
    void markSaved(int event);
    /// Clears a column's saved flag.
    void ClearSequenceData(int event);

  private:
    static constexpr int savedRow = 8;
    void set(int event, int row, std::int16_t value);

    std::array<std::array<std::int16_t, rows>, columns> cells{};
};

/// Whether an event's routine should contain a command: at power on all but the frequency, at every other
/// event the frequency alone.
[[nodiscard]] constexpr bool isRecommended(int event, Command command) {
    return (event == 0) != (command == frequencySetting);
}

/// De-bouncing of the push buttons, by its two bits of the push-button byte.
enum class Debouncing : std::uint8_t { Ms160 = 0, Ms40 = 1, Ms10 = 2, Bypass = 3 };

/// What the push-button byte holds.
struct PushButtonSettings {
    bool fourthButton = false;
    Debouncing debouncing = Debouncing::Ms10;
    /// Button 1 first.
    std::array<bool, 4> continuous{};
    bool pullUpOff = false;

    friend bool operator==(const PushButtonSettings&, const PushButtonSettings&) = default;
};

namespace pushbutton {
inline constexpr int fourthButtonBit = 7;
inline constexpr int debouncingBit = 5;
inline constexpr int firstContinuousBit = 1;
inline constexpr int pullUpBit = 0;
/// 10 ms of de-bouncing, all else off.
inline constexpr std::uint8_t start = 0x40;
} // namespace pushbutton

[[nodiscard]] std::uint8_t pushButtonByte(const PushButtonSettings& settings);
[[nodiscard]] PushButtonSettings pushButtonSettings(std::uint8_t byte);
/// The command with that byte: "CA" and two digits.
[[nodiscard]] std::string pushButtonWord(std::uint8_t byte);

/// The slowest rate that the chip has stands for every rate that cannot be had.
inline constexpr std::string_view slowestRateWord = "C8FF";

/// The data rate word of a typed rate.
/// @param rate  in bit/s; the whole part of its numeric prefix counts
/// @param crystalHertz  8 to 12 MHz
/// @return "C8" and the code R within 0 to 255; slowestRateWord up to 1347 bit/s and for no number
[[nodiscard]] std::string rateWord(std::string_view rate, std::int32_t crystalHertz);
/// The rate in bit/s that a data rate word really gives, to the nearest whole number.
[[nodiscard]] std::string obtainedRate(std::string_view word, std::int32_t crystalHertz);

} // namespace zor
