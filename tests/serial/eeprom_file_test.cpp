// SPDX-License-Identifier: MIT
// A demonstration board's EEPROM that a file keeps from one simulated board to the next.
#include "program_on_board.h"

#include "eeprom/eeprom.h"
#include "link/connect.h"

#include <gtest/gtest.h>

#include <QFile>

namespace zor {

using namespace std::chrono_literals;

namespace {

class EepromFile : public ProgramOnBoard {
  protected:
    void send(const std::string& line) {
        loop.perform([&] { main->bench().connect->Send_To_LoadBoard(line); });
    }
};

} // namespace

TEST_F(EepromFile, KeepsWhatIsProgrammedForTheNextBoard) {
    const QString file = folder.filePath(QStringLiteral("eeprom.bin"));
    start({"--kind", "lb2", "--eeprom", file});
    ASSERT_TRUE(chosen());
    main->menu.mnutoolsEEPROM.click();
    auto& programmer = dynamic_cast<Eeprom&>(*desk.find("eeprom"));
    // Two pages: the wire takes the digits as they stand, the device has no case.
    programmer.takeImage("c6 03 AA 2d D4 c4 00 01 02 03 04 05 06 07 08 09\r\n"
                         "10 11 12 13 14 15 16 17 18 19 1a 1b 1c 1d 1e 1f");
    programmer.Prog.setEnabled(true);
    ASSERT_TRUE(programmer.Prog.click());
    ASSERT_TRUE(wait([&] { return !programmer.running(); }));
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "End of Programming");

    board.stop();
    ASSERT_TRUE(wait([this] { return dialogs.boxes.size() == 2; }));
    QFile kept(file);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    QByteArray bytes = kept.readAll();
    ASSERT_EQ(bytes.size(), static_cast<qsizetype>(eepromBytes));
    EXPECT_EQ(bytes.left(4).toHex(), "c603aa2d");
    EXPECT_EQ(bytes.mid(28, 6).toHex(), "1c1d1e1fffff");

    DemoBoard next;
    QString terminal = next.start({"--kind", "lb2", "--eeprom", file});
    ASSERT_FALSE(terminal.isEmpty());
    if (terminal.toStdString() != devices.path(1)) {
        // Another terminal than the one that the first board gave free.
        devices.addDevice(terminal.toStdString(), "LoadBoard");
    }
    main->linkBar.Connect.click();
    ASSERT_TRUE(
        wait([this] { return main->bench().link.CommState() == 0 && main->bench().connect->isOpen(); }));
    for (const char* line : {"H2\r", "L2\r", "WS03,00,00\r", "RS16\r"}) {
        send(line);
    }
    EXPECT_NE(main->bench().link.Last100.find("c6 03 aa 2d d4 c4 00 01 02 03 04 05 06 07 08 09"),
              std::string::npos)
        << main->bench().link.Last100;
    send("H2\r");
}

} // namespace zor
