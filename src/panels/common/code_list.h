// SPDX-License-Identifier: MIT
#pragma once

#include "elements/list_box.h"
#include "panels/common/frequency.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// A list whose choice is a field of a control word. A text that is no entry's shows, and the code stays as
/// it was.
class CodeList : public ListBox {
  public:
    struct Entry {
        std::string text;
        int code = 0;
    };

    CodeList(Form& owner, std::string name);

    /// Replaces the entries with their codes. The text and the code stay; no action runs.
    void fill(std::vector<Entry> newEntries);
    /// Entries whose codes are their positions.
    void fill(const std::vector<std::string>& texts);

    [[nodiscard]] int code() const { return ownCode; }
    /// The entry that stands for a code; nothing if there is none.
    [[nodiscard]] std::optional<std::string> textOfCode(int code) const;
    /// The first row that stands for a code; nothing if there is none.
    [[nodiscard]] std::optional<int> rowOfCode(int code) const;
    /// What a row stands for; nothing for a text that stands for nothing.
    [[nodiscard]] std::optional<int> codeOfRow(std::size_t row) const;

    /// For a list whose code comes from the text itself; nothing keeps the code.
    std::function<std::optional<int>(const std::string& text)> codeOfText;

    /// The entries' codes, and behind them the one in force.
    [[nodiscard]] std::vector<int> codesBehind() const override;

  protected:
    void putCodesBehind(const std::vector<int>& kept) override;

  private:
    void takeCode();

    Subscription codeTaking;
    std::vector<int> codes;
    int ownCode = 0;
};

/// A list of values that scale with the crystal.
class ScaledList : public CodeList {
  public:
    /// How a row becomes the code of the word.
    enum class Coding { Row, CountLessRow };

    /// @param atStandardCrystal  the values at crystal ratio 1
    /// @param rowAfterRebuild  the row that a new crystal selects, from 0
    ScaledList(Form& owner, std::string name, std::vector<double> atStandardCrystal, int rowAfterRebuild = 0,
               Coding coding = Coding::Row);

    /// Empties and refills the list for a crystal and selects its fixed row, which runs the action.
    void rebuild(float crystalRatio);

  private:
    std::vector<double> values;
    int fixedRow;
    Coding rowCoding;
};

/// "8.5 pF" to "16.0 pF" by 0.5 pF.
[[nodiscard]] std::vector<std::string> loadCapacitances();
/// "Pmax", "-3 dB" to "-21 dB" by 3 dB.
/// @param count  how many of the eight, from "Pmax" on
[[nodiscard]] std::vector<std::string> outputPowers(std::size_t count = 8);
/// So many deviations in kHz: 1, 2, 3 ... times the step.
[[nodiscard]] std::vector<double> deviations(int count, double stepKilohertz);

} // namespace zor
