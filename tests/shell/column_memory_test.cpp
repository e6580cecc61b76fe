// SPDX-License-Identifier: MIT
#include "shell/column_memory.h"

#include "host/files.h"
#include "shell/main_window.h"
#include "shell/settings.h"
#include "virtual/virtual_machine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace zor {

namespace {

using testing::VirtualMachine;

/// One run of the program on a machine, with the wire log open.
class ProgramRun {
  public:
    explicit ProgramRun(VirtualMachine& ownMachine)
        : machine(ownMachine)
        , desk(machine.loop)
        , program(std::make_unique<MainWindow>(machine.platform, desk)) {
        machine.loop.perform([this] { program->start(); });
        program->bench().tools.open(Tool::frm_WireLog);
    }
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun() {
        program.reset();
        machine.loop.perform([] {});
    }

    Grid& grid() {
        for (Element* element : program->bench().tools.find(Tool::frm_WireLog)->elements()) {
            if (auto* found = dynamic_cast<Grid*>(element)) {
                return *found;
            }
        }
        throw std::logic_error("the wire log has no grid");
    }
    [[nodiscard]] std::vector<int> widths() {
        std::vector<int> all;
        for (const GridColumn& column : grid().columns()) {
            all.push_back(column.characters);
        }
        return all;
    }

  private:
    VirtualMachine& machine;
    Desk desk;
    std::unique_ptr<MainWindow> program;
};

std::filesystem::path fileOn(const VirtualMachine& machine) {
    return settingsFileToWrite(machine.platform, "ZOR-more.ini");
}

} // namespace

TEST(ColumnMemory, AColumnIsAsWideInTheNextRun) {
    VirtualMachine machine;
    std::vector<int> wanted;
    {
        ProgramRun first(machine);
        wanted = first.widths();
        wanted[1] += 7;
        first.grid().setColumnWidth(1, wanted[1]);
    }
    EXPECT_EQ(ProgramRun(machine).widths(), wanted);
}

TEST(ColumnMemory, TheFileIsWrittenOnceTheColumnRests) {
    VirtualMachine machine;
    ProgramRun run(machine);
    run.grid().setColumnWidth(1, 30);
    EXPECT_FALSE(std::filesystem::exists(fileOn(machine)));
    machine.loop.runFor(std::chrono::milliseconds(900));
    run.grid().setColumnWidth(1, 31);
    machine.loop.runFor(std::chrono::milliseconds(900));
    EXPECT_FALSE(std::filesystem::exists(fileOn(machine)));
    machine.loop.runFor(std::chrono::milliseconds(200));
    EXPECT_NE(readFile(fileOn(machine), longestSettings).find(" 31 "), std::string::npos);
}

TEST(ColumnMemory, WidthsOfAnotherTableOrBeyondAnyScreenAreTakenForWhatTheyAre) {
    VirtualMachine machine;
    std::vector<int> own = ProgramRun(machine).widths();
    std::ofstream(fileOn(machine), std::ios::binary)
        << "\"# ZOR more settings version 1\"\r\n#FALSE#\r\n\"Columns frm_WireLog."
        << ProgramRun(machine).grid().name() << " 3 4\"\r\n";
    EXPECT_EQ(ProgramRun(machine).widths(), own);
    std::string line = "\"Columns frm_WireLog." + ProgramRun(machine).grid().name();
    for (std::size_t column = 0; column < own.size(); ++column) {
        line += column == 0 ? " -5" : " 2000000000";
    }
    std::ofstream(fileOn(machine), std::ios::binary) << "\"# ZOR more settings version 1\"\r\n#FALSE#\r\n"
                                                     << line << "\"\r\n";
    std::vector<int> taken = ProgramRun(machine).widths();
    EXPECT_EQ(taken.front(), 1);
    EXPECT_EQ(taken.back(), 500);
}

} // namespace zor
