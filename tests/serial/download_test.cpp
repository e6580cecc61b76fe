// SPDX-License-Identifier: MIT
#include "program_on_board.h"

#include "host/files.h"
#include "utilities/firm_load.h"
#include "utilities/mac_sniffer.h"

#include <QFile>

namespace zor {

using namespace std::chrono_literals;

namespace {

/// A record of 16 bytes that all depend on the address.
std::string record(unsigned address) {
    std::vector<unsigned> bytes = {16, address >> 8, address & 0xFF, 0};
    for (unsigned i = 0; i < 16; ++i) {
        bytes.push_back((address / 16 + i * 7) & 0xFF);
    }
    unsigned sum = 0;
    QString text = QStringLiteral(":");
    for (unsigned byte : bytes) {
        sum += byte;
        text += QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
    }
    text += QStringLiteral("%1").arg(-sum & 0xFF, 2, 16, QLatin1Char('0')).toUpper();
    return text.toStdString();
}

/// On a simulated board that runs another firmware than a LoadBoard's.
class OtherFirmware : public ProgramOnBoard {
  protected:
    void start(const QStringList& arguments) {
        ProgramOnBoard::start(arguments);
        ASSERT_TRUE(chosen());
    }

    FirmLoad& openLoader(unsigned records) {
        std::string file;
        for (unsigned i = 0; i < records; ++i) {
            file += record(i * 16) + "\r\n";
        }
        file += ":00000001FF\r\n\r\n";
        dialogs.file = folder.filePath(QStringLiteral("firmware.hex")).toStdString();
        writeFileWhole(dialogs.file, file);
        main->bench().tools.open(Tool::FirmLoad);
        auto& tool = dynamic_cast<FirmLoad&>(*main->bench().tools.find(Tool::FirmLoad));
        tool.loadeefile.click();
        return tool;
    }
};

} // namespace

TEST_F(OtherFirmware, ADownloadArrivesWholeAndTheLineSpeaksCommandsAgain) {
    start({"--kind", "loader"});
    FirmLoad& tool = openLoader(64);
    ASSERT_TRUE(dialogs.boxes.empty());
    tool.Prog.click();
    EXPECT_EQ(main->bench().connect->settings().format, "57600,N,8,1");
    ASSERT_TRUE(wait([&] { return tool.state.text() == "Load end"; }, 30s));
    EXPECT_EQ(tool.Outcome.caption(), "The loader took 65 lines: all lines were sent.");
    EXPECT_EQ(tool.ProgressBar1.value(), 100);
    EXPECT_EQ(main->bench().link.CommState(), 0);
    EXPECT_EQ(main->bench().connect->settings().format, "19200,N,8,1");

    // What the board is asked beside the wire may overtake its last line; an answer on the wire cannot.
    loop.perform([this] { main->bench().connect->Send_To_LoadBoard("i\r"); });
    EXPECT_EQ(main->bench().link.Last7, "\n\rOK\n\r>");

    QString image = folder.filePath(QStringLiteral("image.txt"));
    board.tell(QStringLiteral("image ") + image);
    ASSERT_TRUE(wait([&] { return QFile::exists(image); }));
    std::string expected;
    for (unsigned i = 0; i < 64; ++i) {
        QString text = QStringLiteral("%1:").arg(i * 16, 6, 16, QLatin1Char('0')).toUpper();
        for (unsigned byte = 0; byte < 16; ++byte) {
            text += QStringLiteral(" %1").arg((i + byte * 7) & 0xFF, 2, 16, QLatin1Char('0')).toUpper();
        }
        expected += text.toStdString() + "\n";
    }
    EXPECT_EQ(readFile(image.toStdString()), expected);

    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(OtherFirmware, ALoaderThatFallsSilentEndsTheDownloadAndTheProgramGoesOn) {
    start({"--kind", "loader", "--stall", "5"});
    FirmLoad& tool = openLoader(8);
    tool.Prog.click();
    ASSERT_TRUE(wait([&] { return tool.state.text() == "Load end"; }));
    EXPECT_EQ(tool.Outcome.caption(), "The loader fell silent at line 5.");
    board.tell(QStringLiteral("stall 0"));
    // Each download begins without an outcome.
    tool.Prog.click();
    ASSERT_EQ(tool.Outcome.caption(), "");
    ASSERT_TRUE(wait([&] { return !tool.Outcome.caption().empty(); }));
    EXPECT_EQ(tool.Outcome.caption(), "The loader took 9 lines: all lines were sent.");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(OtherFirmware, ABoardPulledOutInADownloadIsToldOnce) {
    start({"--kind", "loader", "--slow", "20"});
    FirmLoad& tool = openLoader(40);
    loop.startTimer(300ms, EventLoop::Repeat::Once, [this] { board.stop(); });
    tool.Prog.click();
    ASSERT_TRUE(wait([&] { return tool.state.text() == "Load end"; }));
    wait([] { return false; }, 1500ms);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "LoadBoard Communication Error!");
    EXPECT_EQ(main->bench().link.CommState(), 0);
    EXPECT_FALSE(main->bench().connect->isOpen());
    EXPECT_TRUE(tool.Outcome.caption().starts_with("The port was closed at line")) << tool.Outcome.caption();
}

TEST_F(OtherFirmware, TheSnifferShowsWhatAPacketMonitorPrints) {
    start({"--kind", "monitor", "--packets", "20"});
    main->bench().tools.open(Tool::frm_VireoMacSniffer);
    auto& tool = dynamic_cast<MacSniffer&>(*main->bench().tools.find(Tool::frm_VireoMacSniffer));
    EXPECT_TRUE(wait([&] { return tool.Incoming.text().find("00010 CID ") != std::string::npos; }));
    EXPECT_NE(tool.Incoming.text().find("\r\n00009 CID "), std::string::npos);
    EXPECT_TRUE(dialogs.boxes.empty());
}

} // namespace zor
