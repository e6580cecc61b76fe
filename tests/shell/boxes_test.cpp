// SPDX-License-Identifier: MIT
// The signs that the boxes bear: what they are about is seen before they are read.
#include "link/connect.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <fstream>

namespace zor {

namespace {

using namespace std::chrono_literals;
using zor::testing::VirtualBench;

struct Boxes : VirtualBench {
    Boxes() {
        ports.place(1, sim::BoardKind::LoadBoard2);
        startAndSearch();
        run(1s);
    }

    void click(const char* form, const char* element) { ASSERT_TRUE(at(form, element).click()); }
    /// The sign of the only box, which holds this text.
    BoxIcon iconOf(const char* part) {
        EXPECT_EQ(dialogs.boxes.size(), 1u);
        if (dialogs.boxes.empty()) {
            return BoxIcon::None;
        }
        Box box = dialogs.boxes.front();
        dialogs.boxes.clear();
        EXPECT_NE(box.text.find(part), std::string::npos) << box.text;
        return box.icon;
    }
};

} // namespace

TEST(Boxes, ThatSayWhatWasDoneBearInformation) {
    Boxes bench;
    bench.click("main", "mnuSaveWorkspace");
    EXPECT_EQ(bench.iconOf("Workspace configuration has been saved."), BoxIcon::Information);
}

TEST(Boxes, ThatSayWhyNothingIsDoneBearAWarning) {
    Boxes bench;
    bench.click("main", "TX");
    EXPECT_EQ(bench.iconOf("Please select"), BoxIcon::Warning);
    bench.click("main", "mnuViewTx0");
    bench.click("OpalV2", "ReadStatus");
    bench.click("OpalV2", "IRQpoll");
    EXPECT_EQ(bench.iconOf("Commport is busy"), BoxIcon::Warning);
    bench.run(1s);
    bench.click("main", "Disconnect");
    for (const char* button : {"Update", "CalibratePLL", "ReadStatus", "IRQpoll"}) {
        bench.click("OpalV2", button);
        EXPECT_EQ(bench.iconOf("Commport not available"), BoxIcon::Warning) << button;
    }
}

TEST(Boxes, ThatTellAFailureBearIt) {
    Boxes bench;
    bench.click("main", "mnuViewTx0");
    bench.dialogs.files.emplace_back("/no/such/file.tc");
    bench.click("OpalV2", "ConfLoad");
    EXPECT_EQ(bench.iconOf("Error occured"), BoxIcon::Critical);
    bench.dialogs.files.emplace_back("/no/such/file.txt");
    bench.click("OpalV2", "ConfLoad");
    EXPECT_EQ(bench.iconOf("File type not supported!"), BoxIcon::Critical);
    bench.ports.seat(1).unplug();
    bench.click("OpalV2", "Update");
    EXPECT_EQ(bench.iconOf("Loadboard disconnected!"), BoxIcon::Critical);
}

TEST(Boxes, ThatAskBearAQuestion) {
    Boxes bench;
    bench.click("main", "mnuViewTx0");
    std::string name = (bench.platform.programFolder / "a.tc").string();
    std::ofstream(name) << "x";
    bench.dialogs.files.emplace_back(name + ".tc");
    bench.dialogs.files.emplace_back(std::nullopt);
    bench.click("OpalV2", "ConfSave");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1u);
    EXPECT_EQ(bench.dialogs.boxes.front().buttons, BoxButtons::YesNo);
    EXPECT_EQ(bench.iconOf("Do you want to replace it?"), BoxIcon::Question);
}

} // namespace zor
