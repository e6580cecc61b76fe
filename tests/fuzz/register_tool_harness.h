// SPDX-License-Identifier: MIT
#pragma once

#include "host/files.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "store/register_list_store.h"
#include "virtual/virtual_bench.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace zor::testing {

/// The register tool with a chip chosen and no board connected, given any bytes as one of its files.
class RegisterToolHarness : public VirtualBench {
  public:
    RegisterToolHarness() {
        shared().link.port.endStart();
        store::SqliteRegisterStores maker;
        store::makeDatabase(maker, platform.programFolder / "ZOR.db", readRegisterList(chip));
        loop.perform([this] { shared().tools.open(Tool::SPI); });
        tool().ChipSelect.choosePosition(0);
    }

    [[nodiscard]] SPI& tool() { return dynamic_cast<SPI&>(*desk.find("SPI")); }
    [[nodiscard]] std::filesystem::path file() const { return folder.path() / "fuzzed.txt"; }

    /// Answers the dialog of a load with a file of these bytes. Whatever they are, the tool is free behind
    /// it and its store holds.
    void load(Button& button, const std::uint8_t* data, std::size_t size) {
        writeFileWhole(file(), {reinterpret_cast<const char*>(data), size});
        dialogs.boxes.clear();
        click(button);
        if (!tool().whole.RefreshTable.enabled() || tool().store == nullptr ||
            tool().table.rows().size() != registers) {
            std::abort();
        }
    }
    /// @return the bytes that a save gave
    std::string saved(Button& button) {
        click(button);
        return readFile(file());
    }

    static constexpr std::size_t registers = 5;
    static constexpr std::size_t fifoBytes = 3;

  private:
    static constexpr const char* chip = R"(
chip 1 "Fuzzed" "P1" 3 3 3E 3F registers
register 1 00 "A" R,RF          24 8 "7 6 5 4 3 2 1 0" ""
register 1 05 "B" R,W,Digital   86 8 "7 6 5 4 3 2 1 0" ""
register 1 0A "C" R,W,Misc      80 8 "7 6 5 4 3 2 1 0" ""
register 1 10 "D" R,W,Misc,RF   2D 8 "7 6 5 4 3 2 1 0" ""
register 1 22 "E" W,Test        01 8 "7 6 5 4 3 2 1 0" ""
register 1 30 "S" R,Status    0000 16 "" ""
)";

    void click(Button& button) {
        dialogs.files.emplace_back(file().string());
        button.click();
        if (!dialogs.files.empty()) {
            std::abort();
        }
        dialogs.fileDialogs.clear();
        asked.clear();
    }
};

} // namespace zor::testing
