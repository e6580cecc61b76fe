// SPDX-License-Identifier: MIT
// The tour's stop at the register tool: the demonstration chip read, a bit flipped, and a script that sends
// packets over a link with a few bit errors.
#include "desktop/demo_tour.h"

#include "registertool/spi.h"
#include "shell/main_window.h"
#include "support/numbers.h"

namespace zor {

using namespace std::chrono_literals;

namespace {

constexpr const char* rounds = "8";

void fillFifos(FifoPage& fifo) {
    constexpr std::string_view packet = "Ortolan link test 0123456789 ";
    std::size_t hex = *fifo.TXFIFO.column("Hex");
    std::size_t expected = *fifo.RXFIFO.column("Xpd");
    for (std::size_t row = 0; row < fifo.TXFIFO.rowCount() && row < fifo.RXFIFO.rowCount(); ++row) {
        std::string digits = hexText(static_cast<unsigned char>(packet[row % packet.size()]), 2);
        fifo.TXFIFO.editCell(row, hex, digits);
        fifo.RXFIFO.editCell(row, expected, digits);
    }
}

void pickRegister(RegisterEditor& editor, std::string_view address) {
    Grid& grid = editor.SettingsDataGrid;
    std::size_t column = *grid.column("Addr.");
    for (std::size_t row = 0; row < grid.rowCount(); ++row) {
        if (grid.cell(row, column).text == address) {
            grid.pickRow(row);
            return;
        }
    }
}

} // namespace

void DemoTour::visitRegisters() {
    // Its entry is brought out by a gesture.
    main.perform([this] { main.bench().tools.open(Tool::SPI); });
    auto* tool = dynamic_cast<SPI*>(main.bench().tools.find(Tool::SPI));
    if (tool == nullptr || !tool->ChipSelect.choosePosition(0)) {
        return;
    }
    tool->whole.RefreshTable.click();
    int row = 0;
    for (const char* address : {"0A", "05", "08", "00"}) {
        tool->macros.rows[static_cast<std::size_t>(row++)].M_Address.type(address);
    }
    tool->macros.rows[2].M_bit[6].click();
    tool->status.StatusRegCombo.choosePosition(0);
    tool->status.StatusRead.click();
    tool->GuiNotes.type("Receiver bring-up: gain, band and deviation at hand.");
    pickRegister(tool->editor, "0A");
    tool->editor.bit[3].click();
    tool->editor.bit[0].click();
    settle(200ms);
    takePicture(QStringLiteral("SPI"));
    tool->editor.Send.click();

    tool->TabStrip1.choosePosition(2);
    fillFifos(tool->fifo);
    Batch& script = tool->batch.batches[0];
    script.BatchName.type("Packet loop");
    script.BatchCommands.edit("/ one packet, then count\r\n#FIFO_WRITE\r\n#FIFO_READ\r\nS2 0A00\r\n");
    tool->batch.batches[1].BatchCommands.edit("/ receiver on\r\nS2 8AA9\r\n#STATUSREAD\r\n");
    tool->batch.ENLimit.tick(true);
    tool->batch.LoopLimit.type(rounds);
    script.EnLoop.tick(true);
    constexpr auto nearItsEnd = 11s;
    main.loop().startTimer(nearItsEnd, EventLoop::Repeat::Once,
                           [this] { takePicture(QStringLiteral("SPI-fifo")); });
    script.BatchRun.click();
    main.bench().tools.open(Tool::SPIsub2);
    visitForm(*main.bench().tools.find(Tool::SPIsub2));
    tool->userClose();
    settle(50ms);
}

} // namespace zor
