// SPDX-License-Identifier: MIT
// Reports that are cut, doubled, longer or shorter than told, or lie among garbage, at the windows that
// receive: they stay alive, send nothing but their arming, and take a good packet afterwards.
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

struct Receiving {
    const char* form;
    MenuEntry MainMenu::*panel;
    MenuEntry MainMenu::*tool;
    const char* begin;
    const char* beginCaption;
    const char* monitor;
    const char* count;
    std::vector<std::string> armingLines;
};

void PrintTo(const Receiving& row, std::ostream* out) {
    *out << row.form;
}

std::vector<Receiving> rows() {
    return {{"AmberV1rflink_LB2",
             &MainMenu::mnuViewRx,
             &MainMenu::mnuToolsRFlink,
             "EnRx",
             "Disable",
             "Monitor",
             "PCnt",
             {"S2CE85", "H2", "L2", "L0", "RS", "F11,13,100,1", "S2CE87"}},
            {"Frm_BerylRfLinkTest",
             &MainMenu::mnuViewTRx,
             &MainMenu::mnuToolsBerylRFlink,
             "PB_Enable",
             "&Disable Receive",
             "TB_MonitoredData",
             "TB_PacketCount",
             {"S2CA80", "H2", "L2", "L0", "RS", "F11,13,100,1", "S2CA82"}}};
}

std::string report(const std::string& length, const std::string& payload) {
    return "\n\rReceived packet: " + length + " bytes: " + payload + "\n\rOK\n\r>";
}

class Spoiler {
  public:
    explicit Spoiler(std::uint32_t seed)
        : random(seed) {}

    std::string next() {
        std::string good = report("05", "PKT 1");
        switch (below(9)) {
        case 0:
            return good;
        case 1:
            return good.substr(0, below(good.size()));
        case 2:
            return good.substr(below(good.size()));
        case 3:
            return good + good;
        case 4:
            return report("99", "PKT");
        case 5:
            return report("02", "far more than it says");
        case 6:
            return report(below(2) == 0 ? "-1" : "x7", "PKT");
        case 7:
            return report("07", "\n\rOK\n\r>");
        default:
            return garbage() + good + garbage();
        }
    }
    std::chrono::milliseconds pause() { return std::chrono::milliseconds(below(250)); }

  private:
    std::size_t below(std::size_t limit) { return random() % limit; }
    std::string garbage() {
        std::string bytes(below(40), ' ');
        std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<char>(random()); });
        return bytes;
    }

    std::mt19937 random;
};

class SpoiltReports : public ::testing::TestWithParam<Receiving> {
  protected:
    void open(VirtualBench& bench) const {
        bench.ports.place(1, sim::BoardKind::LoadBoard2);
        bench.startAndSearch();
        (bench.main().menu.*row.panel).click();
        (bench.main().menu.*row.tool).click();
        if (Element* pages = bench.desk.find(row.form)->find("TabStrip1")) {
            pages->choosePosition(2);
        }
        bench.takeSent();
        bench.at(row.form, row.begin).click();
    }
    void expectArmingOnly(VirtualBench& bench) const {
        for (const std::string& line : bench.takeSent()) {
            EXPECT_NE(std::find(row.armingLines.begin(), row.armingLines.end(), line), row.armingLines.end())
                << line;
        }
    }

    const Receiving& row = GetParam();
};

} // namespace

TEST_P(SpoiltReports, NeverMakeAWindowSendWhatItShouldNot) {
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        VirtualBench bench;
        open(bench);
        Spoiler spoiler(seed);
        sim::Board& board = bench.ports.seat(1).board();
        for (int step = 0; step < 15; ++step) {
            board.emit(spoiler.next());
            bench.run(spoiler.pause());
        }
        bench.run(1s);
        expectArmingOnly(bench);
        EXPECT_TRUE(bench.dialogs.boxes.empty());
        EXPECT_EQ(bench.at(row.form, row.begin).caption(), row.beginCaption);
        EXPECT_EQ(bench.shared().link.CommState(), 0);

        // A report that tells more than it has waits for the rest; off and on again helps with that too.
        bench.at(row.form, row.begin).click();
        bench.at(row.form, row.begin).click();
        board.hearPacket("GOOD");
        bench.run(500ms);
        EXPECT_TRUE(bench.at(row.form, row.monitor).text().find("GOOD") != std::string::npos)
            << bench.at(row.form, row.monitor).text();
    }
}

TEST_P(SpoiltReports, AreNoPacketsToAWindowThatDoesNotReceive) {
    VirtualBench bench;
    open(bench);
    bench.at(row.form, row.begin).click();
    bench.takeSent();
    Spoiler spoiler(3);
    for (int step = 0; step < 30; ++step) {
        bench.ports.seat(1).board().emit(spoiler.next());
        bench.run(spoiler.pause());
    }
    EXPECT_TRUE(bench.takeSent().empty());
    EXPECT_EQ(bench.at(row.form, row.count).text(), "0");
    EXPECT_EQ(bench.at(row.form, row.monitor).text(), "");
}

/// A driver may hand on the answer to the arming's last line and the report behind it in one read.
TEST(ReportInTheBreathOfTheAnswer, IsReceivedHoweverTheDriverHandsItOn) {
    for (Delivery delivery : {Delivery(1), Delivery(2), allWaiting}) {
        SCOPED_TRACE(delivery);
        VirtualBench bench;
        bench.ports.delivery = delivery;
        bench.ports.place(1, sim::BoardKind::LoadBoard2)
            .setReply("S2CA82", "0000 \n\rOK\n\r>\n\rReceived packet: 02 bytes: AB");
        bench.startAndSearch();
        bench.main().menu.mnuViewTRx.click();
        bench.main().menu.mnuToolsBerylRFlink.click();
        bench.at("Frm_BerylRfLinkTest", "TabStrip1").choosePosition(2);
        bench.at("Frm_BerylRfLinkTest", "CB_ContReceive").tick(false);
        bench.takeSent();
        bench.at("Frm_BerylRfLinkTest", "PB_Enable").click();
        bench.run(1s);
        EXPECT_EQ(bench.at("Frm_BerylRfLinkTest", "TB_PacketCount").text(), "1");
        EXPECT_EQ(bench.at("Frm_BerylRfLinkTest", "TB_MonitoredData").text(), "AB");
        EXPECT_EQ(bench.at("Frm_BerylRfLinkTest", "PB_Enable").caption(), "&Enable Receive");
        EXPECT_EQ(bench.takeSent(), (std::vector<std::string>{"S2CA80", "H2", "L2", "L0", "RS", "RS", "H2",
                                                              "F11,13,100,1", "S2CA82", "F0", "S2CA80"}));
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, SpoiltReports, ::testing::ValuesIn(rows()),
                         [](const auto& row) { return std::string(row.param.form); });

} // namespace zor::testing
