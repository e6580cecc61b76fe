// SPDX-License-Identifier: MIT
// How panels read a status, once and again and again, and what they show of it.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"

#include <gmock/gmock.h>

namespace zor {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PanelBench;
using testing::With;
using namespace std::chrono_literals;

bool lit(PanelBench<OpalV2>& bench, int index) {
    return bench.panel->status(index).lit();
}

} // namespace

TEST(ChipPanel, AStatusReadPaintsTheByteFromItsHighBitOn) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    bench.board().setStatus(0x81);
    bench.click("ReadStatus");
    EXPECT_EQ(bench.shared().link.CommState(), 1);
    bench.run(1000ms);
    EXPECT_THAT(bench.takeSent(), ElementsAre("H2", "L2", "WSCC", "L0", "RS", "H2"));
    EXPECT_EQ(bench.shared().link.CommState(), 0);
    for (int index = 1; index <= 8; ++index) {
        bool set = index == 1 || index == 8;
        EXPECT_EQ(lit(bench, index), set) << index;
        EXPECT_EQ(panel.status(index).enabled(), set) << index;
        EXPECT_EQ(panel.status(index).background(),
                  set ? panel.OnColor.background() : panel.OffColor.background())
            << index;
    }
    EXPECT_EQ(panel.status(1).caption(), "POR");
    EXPECT_EQ(panel.status(8).caption(), "nIRQ");
    bench.board().setStatus(0x7E);
    bench.click("ReadStatus");
    bench.run(1000ms);
    EXPECT_FALSE(lit(bench, 1));
    EXPECT_TRUE(lit(bench, 2));
    EXPECT_FALSE(lit(bench, 8));
}

TEST(ChipPanel, TheKT1102IsReadWithoutACommand) {
    PanelBench<KT1102> bench(With::LoadBoard1);
    bench.open();
    bench.click("ReadStatus");
    bench.run(1000ms);
    EXPECT_THAT(bench.takeSent(), ElementsAre("H2", "L2", "L0", "RS", "H2"));
}

TEST(ChipPanel, AStatusReadWantsAFreePort) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    PortClaim other = bench.shared().link.port.claim(3);
    bench.click("ReadStatus");
    EXPECT_EQ(bench.takeBox(), "Commport is busy. Please retry later!");
    bench.click("IRQpoll");
    EXPECT_EQ(bench.takeBox(), "Commport is busy. Please retry later!");
    EXPECT_EQ(bench.shared().link.CommState(), 3);
    bench.run(1000ms);
    EXPECT_THAT(bench.takeSent(), IsEmpty());

    PanelBench<OpalV2> without;
    without.open();
    without.click("ReadStatus");
    EXPECT_EQ(without.takeBox(), "Commport not available, Loadboard not connected!");
    without.click("IRQpoll");
    EXPECT_EQ(without.takeBox(), "Commport not available, Loadboard not connected!");
}

TEST(ChipPanel, AStatusReadLeavesAStepOfAnotherToolAlone) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    bench.open();
    bench.click("ReadStatus");
    PortClaim other = bench.shared().link.port.seize(42);
    bench.run(1000ms);
    EXPECT_EQ(bench.shared().link.CommState(), 42);
    EXPECT_THAT(bench.takeSent(), IsEmpty());
}

TEST(ChipPanel, TheInterruptLinesLevelLightsItsLamp) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    bench.board().setInterruptLine(false);
    bench.click("IRQpoll");
    bench.run(1000ms);
    EXPECT_THAT(bench.takeSent(), ElementsAre("RI"));
    EXPECT_TRUE(panel.IRQ.lit());
    EXPECT_TRUE(panel.IRQ.enabled());
    EXPECT_EQ(panel.IRQ.background(), panel.OnColor.background());
    EXPECT_EQ(bench.shared().link.CommState(), 0);
    bench.board().setInterruptLine(true);
    bench.click("IRQpoll");
    bench.run(1000ms);
    EXPECT_FALSE(panel.IRQ.lit());
    EXPECT_FALSE(panel.IRQ.enabled());
    EXPECT_EQ(panel.IRQ.background(), panel.OffColor.background());
}

TEST(ChipPanel, ADoubleClickReadsOnceAndThenAgainAndAgain) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    panel.ReadStatus.doubleClick();
    bench.run(1400ms);
    EXPECT_EQ(bench.takeSent().size(), 6U);
    bench.run(110ms);
    EXPECT_EQ(panel.ReadStatus.background(), (Colour{255, 255, 0}));
    bench.run(150ms);
    EXPECT_EQ(panel.ReadStatus.background(), std::nullopt);
    bench.run(2500ms);
    EXPECT_EQ(bench.takeSent().size(), 12U);
}

TEST(ChipPanel, AClickDuringRepeatsEndsThemAndReadsOnce) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    panel.ReadStatus.doubleClick();
    bench.run(2500ms);
    bench.takeSent();
    bench.click("ReadStatus");
    bench.run(10000ms);
    EXPECT_EQ(bench.takeSent().size(), 6U);
}

TEST(ChipPanel, LeavingTheButtonEndsTheRepeats) {
    PanelBench<OpalV2> bench(With::LoadBoard1);
    auto& panel = bench.open();
    EXPECT_TRUE(panel.ReadStatus.takesFocusOnClick);
    panel.ReadStatus.takeFocus();
    panel.ReadStatus.doubleClick();
    bench.run(2500ms);
    bench.takeSent();
    panel.FreqCenter.takeFocus();
    bench.run(10000ms);
    EXPECT_THAT(bench.takeSent(), IsEmpty());
}

TEST(ChipPanel, TheStatusAreaFoldsOutAndIn) {
    PanelBench<OpalV2> bench;
    auto& panel = bench.open();
    bench.click("ShowStatus");
    EXPECT_EQ(panel.extent().height, 9700);
    EXPECT_EQ(panel.ShowStatus.caption(), "Hide Status");
    bench.click("ShowStatus");
    EXPECT_EQ(panel.extent().height, 8930);
    EXPECT_EQ(panel.ShowStatus.caption(), "Show Status");
    panel.setExtent({9000, 15000});
    bench.click("ShowStatus");
    EXPECT_EQ(panel.extent().height, 8930);
}

} // namespace zor
