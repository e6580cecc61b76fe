// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "registertool/setting_table.h"

#include <map>
#include <optional>
#include <string>

namespace zor {

class SPI;

/// Which registers have another value than they had once: after a reset, when they were last read, in a
/// configuration file. Each such row bears a sign; the list can be brought to show those rows alone, and what
/// it shows can be saved.
class Differences {
  public:
    explicit Differences(SPI& ownTool);

    /// What the list shows: all registers, or those that differ from something.
    ListBox Show;
    /// Chooses the configuration file to compare with.
    Button CompareFile;
    /// The file's name, and how many registers differ from it.
    Label ComparedFile;
    Button SaveListed;

    [[nodiscard]] bool wants(const Setting& setting) const;
    /// The signs of a row; empty if it differs from nothing.
    [[nodiscard]] std::string marksOf(const Setting& setting) const;
    /// "6 differ from their defaults"; empty if none does.
    [[nodiscard]] std::string summary() const;

  private:
    enum class Against { Nothing, Default, LastRead, File };

    [[nodiscard]] bool differs(const Setting& setting, Against against) const;
    /// nullptr where there is nothing to compare with.
    [[nodiscard]] const std::string* valueOf(const Setting& setting, Against against) const;
    [[nodiscard]] std::size_t countOf(Against against) const;
    [[nodiscard]] Against chosen() const;
    void Show_Click();
    /// @return whether there is a file to compare with now
    bool chooseFile();
    void showFile();
    void SaveListed_Click();
    [[nodiscard]] std::string configuration() const;
    [[nodiscard]] std::string table() const;

    SPI& tool;
    /// Values by address, as the file has them; nothing while no file is chosen.
    std::optional<std::map<std::string, std::string>> fileValues;
    std::string fileName;
    Against shows = Against::Nothing;
    Subscription stored;
    Subscription showsOthers;
};

} // namespace zor
