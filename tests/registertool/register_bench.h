// SPDX-License-Identifier: MIT
#pragma once

#include "registertool/spi.h"

#include "store/register_list_store.h"
#include "store/sqlite_register_store.h"
#include "virtual/virtual_bench.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zor::testing {

inline constexpr const char* twoChips = R"(
chip 1 "One" "P1" 4 3 null null line
chip 2 "Two" "P2" 2 0 null null line
register 1 00 "A" R,W,RF   11 8 "" ""
register 1 01 "B" R,W,Test 22 8 "" ""
register 1 02 "C" R,W,Misc 33 8 "" ""
register 2 07 "D" R,W,Misc 44 8 "" ""
)";

/// The program with a board and a database of two chips.
class RegisterBench : public VirtualBench {
  public:
    RegisterBench() {
        ports.place(1, sim::BoardKind::LoadBoard2).circuits().fitRegisters();
        store::SqliteRegisterStores maker;
        store::makeDatabase(maker, file(), readRegisterList(twoChips));
    }

    [[nodiscard]] std::filesystem::path file() const { return platform.programFolder / "ZOR.db"; }
    SPI& openTool() {
        loop.perform([this] { shared().tools.open(Tool::SPI); });
        return dynamic_cast<SPI&>(*desk.find("SPI"));
    }
    /// Numbers and texts of the boxes of the database.
    std::vector<std::string> storeBoxes() {
        std::vector<std::string> texts;
        for (const Box& box : dialogs.boxes) {
            texts.push_back(box.title + ": " + box.text);
        }
        dialogs.boxes.clear();
        return texts;
    }
};

} // namespace zor::testing
