// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

struct Platform;

/// One current of a chip, as it was measured.
struct MeasuredCurrent {
    std::string chip;  ///< "KT1100B"
    std::string volts; ///< the supply's text, "3.3"
    std::string state; ///< stateName()
    double microamps = 0;
    double step = 0; ///< uA by which the true one may lie beside it
    std::string board;
    std::string time; ///< "2026-03-01 14:05"

    friend bool operator==(const MeasuredCurrent&, const MeasuredCurrent&) = default;
};

/// What was measured of the chips, kept in ZOR-currents.csv among the user's settings: a line a current under
/// a line with the columns' names.
class MeasuredCurrents {
  public:
    /// Reads the file again; a missing one holds nothing. Throws ToolError for one that cannot be read, or
    /// CsvError with the line for one that holds something else; nothing is held then.
    void read(const Platform& platform);
    /// Puts the currents in the place of those that the file has of that chip at that voltage, and keeps all
    /// others. Throws as read() does, and ToolError; the old file is then still there.
    void replace(const Platform& platform, const std::vector<MeasuredCurrent>& fresh);

    /// Holds them for this run alone, where the file cannot be had.
    void keep(const std::vector<MeasuredCurrent>& fresh);

    /// The voltage that was measured nearest to another; empty if the chip was never measured.
    [[nodiscard]] std::string nearestVolts(std::string_view chip, double volts) const;
    /// nullptr if it was not measured.
    [[nodiscard]] const MeasuredCurrent* find(std::string_view chip, std::string_view volts,
                                              std::string_view state) const;
    [[nodiscard]] const std::vector<MeasuredCurrent>& all() const { return currents; }

  private:
    std::vector<MeasuredCurrent> currents;
};

/// Throws CsvError.
[[nodiscard]] std::vector<MeasuredCurrent> parseCurrents(std::string_view text);
[[nodiscard]] std::string formatCurrents(const std::vector<MeasuredCurrent>& currents);

} // namespace zor
