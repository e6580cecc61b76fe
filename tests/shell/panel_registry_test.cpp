// SPDX-License-Identifier: MIT
#include "panels/transmitters/opal_v2.h"
#include "shell/panel_registry.h"
#include "virtual/fake_tools.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace zor {

namespace {

std::vector<std::string> farewells;

/// Stands for the panel of a row: as much of a panel as the registry sees of one.
template <std::size_t row>
class StandIn : public OpalV2 {
  public:
    using OpalV2::OpalV2;

  protected:
    void sendFarewell() override { farewells.emplace_back(panelRows()[row].name); }
};

template <std::size_t row>
std::unique_ptr<ChipPanel> makeStandIn(Bench& bench) {
    return std::make_unique<StandIn<row>>(bench);
}

template <std::size_t... row>
std::vector<PanelRow> withStandIns(std::index_sequence<row...>) {
    std::vector<PanelRow> rows = panelRows();
    ((rows[row].make = makeStandIn<row>), ...);
    return rows;
}

/// A registry of seven panels over a window of its own.
class Registry : public ::testing::Test {
  protected:
    Registry() {
        farewells.clear();
        bench.startAndSearch();
        shared.connect = &bench.channel();
        shared.dataSelector = bench.shared().dataSelector;
        shared.CommStatus = bench.shared().CommStatus;
        shared.link.LoadBoardRev = bench.shared().link.LoadBoardRev;
        window.show();
    }

    void choose(MenuEntry& entry) {
        tools.closings.clear();
        ASSERT_TRUE(entry.click());
    }

    /// The switches that are true, in the table's order.
    [[nodiscard]] std::vector<std::string> openPanels() const {
        std::vector<std::string> names;
        for (const PanelRow& row : rows) {
            if (shared.windows.*row.on) {
                names.emplace_back(row.name);
            }
        }
        return names;
    }

    using Names = std::vector<std::string>;
    using Closed = std::vector<Tool>;

    /// The tools closed since the last choice; the splash goes with every choice.
    [[nodiscard]] Closed closings() const {
        Closed closed = tools.closings;
        closed.erase(std::remove(closed.begin(), closed.end(), Tool::frm_Splash), closed.end());
        return closed;
    }

    testing::VirtualBench bench;
    testing::FakeTools tools{bench.desk};
    Bench shared{bench.platform, bench.desk, tools};
    std::vector<PanelRow> rows = withStandIns(std::make_index_sequence<7>());
    Form window{bench.desk, "window", "window"};
    Bar bar{window, "bar"};
    BarButton TX{window, bar, "TX", "KT110x"};
    BarButton RX{window, bar, "RX", "KT210x"};
    BarButton TRX{window, bar, "TRX", "KT310x"};
    MainMenu menu{window};
    PanelRegistry registry{shared, menu, {TX, RX, TRX}, rows};
};

} // namespace

TEST_F(Registry, AnyTwoPanelsExcludeOneAnother) {
    for (const PanelRow& first : rows) {
        for (const PanelRow& second : rows) {
            if (&first == &second) {
                continue;
            }
            registry.TogglePanel(first.name, shared.windows.*first.on);
            registry.TogglePanel(second.name, shared.windows.*second.on);
            EXPECT_EQ(openPanels(), Names{second.name}) << first.name;
            EXPECT_EQ(TX.pressed(), second.chipClass == ChipClass::Transmitter);
            EXPECT_EQ(RX.pressed(), second.chipClass == ChipClass::Receiver);
            EXPECT_EQ(TRX.pressed(), second.chipClass == ChipClass::Transceiver);
            EXPECT_FALSE((menu.*first.view).checked());
            EXPECT_TRUE((menu.*second.view).checked());
            registry.TogglePanel(second.name, true);
            EXPECT_EQ(openPanels(), Names{});
        }
    }
}

TEST_F(Registry, ATransmitterChosenWhileAReceiverIsOpenClosesTheReceiversLinkWindows) {
    choose(menu.mnuViewRx);
    EXPECT_TRUE(menu.mnuToolsRFlink.enabled());
    EXPECT_TRUE(menu.mnuToolsAmberTestmode.enabled());
    EXPECT_FALSE(menu.mnutoolsRFSetup_RX.enabled());
    choose(menu.mnuViewTx0);
    EXPECT_EQ(openPanels(), Names{"OpalV2"});
    EXPECT_EQ(closings(), (Closed{Tool::AmberV1rflink, Tool::AmberV1rflink_LB2, Tool::frm_Link_RX}));
    EXPECT_FALSE(menu.mnuToolsRFlink.enabled());
    EXPECT_FALSE(menu.mnuToolsAmberTestmode.enabled());
    EXPECT_TRUE(menu.mnuToolsOpalTestmode.enabled());
}

TEST_F(Registry, EachClassClosesItsOwnToolsOnHide) {
    choose(menu.mnuViewTx2);
    choose(menu.mnuViewTx2);
    EXPECT_EQ(closings(), (Closed{Tool::frm_Link, Tool::OpalV2test}));
    choose(menu.mnuViewCoralRx);
    choose(menu.mnuViewCoralRx);
    EXPECT_EQ(closings(), (Closed{Tool::AmberV1rflink, Tool::AmberV1rflink_LB2, Tool::frm_Link_RX}));
    choose(menu.mnuViewTopazTRx);
    choose(menu.mnuViewTopazTRx);
    EXPECT_EQ(closings(), (Closed{Tool::frm_Link, Tool::frm_Link_RX, Tool::Frm_BerylRfLinkTest}));
}

TEST_F(Registry, AGeneration2BoardOffersTheLinkToolsOfTheClass) {
    shared.link.LoadBoardRev = 2;
    choose(menu.mnuViewTRx);
    EXPECT_TRUE(menu.mnuToolsBerylTestmode.enabled());
    EXPECT_TRUE(menu.mnuToolsBerylRFlink.enabled());
    EXPECT_TRUE(menu.mnutoolsRFSetup_TX.enabled());
    EXPECT_TRUE(menu.mnutoolsRFSetup_RX.enabled());
    choose(menu.mnuViewRx);
    EXPECT_FALSE(menu.mnuToolsBerylRFlink.enabled());
    EXPECT_FALSE(menu.mnutoolsRFSetup_TX.enabled());
    EXPECT_TRUE(menu.mnutoolsRFSetup_RX.enabled());
    choose(menu.mnuViewTx2);
    for (const MenuEntry* entry :
         {&menu.mnuToolsOpalTestmode, &menu.mnutoolsECET, &menu.mnutoolsRFSetup_TX, &menu.mnuToolsRFlink}) {
        EXPECT_FALSE(entry->enabled()) << entry->name();
    }
}

TEST_F(Registry, EveryChoiceIsRememberedWithItsCaption) {
    struct Row {
        BarButton& button;
        const char* key;
        const char* caption;
        std::string Selections::*selected;
        const char* selection;
        bool bijaku;
    };
    for (const Row& row : std::initializer_list<Row>{
             {TX, "Opal", "KT1100", &Selections::SelectedTx, "OpalV2", false},
             {TX, "Opal-Bijaku", "KT1100B", &Selections::SelectedTx, "OpalV2B", true},
             {TX, "Jade", "KT1101", &Selections::SelectedTx, "JadeV1", false},
             {TX, "Onyx", "KT1102", &Selections::SelectedTx, "Onyx", false},
             {RX, "Amber", "KT2100", &Selections::SelectedRx, "Amber", false},
             {RX, "Coral", "KT2102", &Selections::SelectedRx, "Coral", false},
             {TRX, "Beryl", "KT3100", &Selections::SelectedTrx, "BerylV3", false},
             {TRX, "Beryl-Bijaku", "KT3100B", &Selections::SelectedTrx, "BerylV3B", true},
             {TRX, "Topaz", "KT3101", &Selections::SelectedTrx, "Topaz", false},
         }) {
        ASSERT_TRUE(row.button.chooseText(row.key));
        EXPECT_EQ(row.button.caption(), row.caption);
        EXPECT_EQ(shared.selections.*row.selected, row.selection);
        EXPECT_EQ(shared.IsBijakuModeSet(), row.bijaku) << row.key;
        EXPECT_TRUE(row.button.pressed()) << row.key;
        EXPECT_EQ(openPanels().size(), 1U) << row.key;
        // The button alone repeats the choice: it hides a plain panel, and shows a variant again.
        ASSERT_TRUE(row.button.click());
        EXPECT_EQ(openPanels().size(), row.bijaku ? 1U : 0U) << row.key;
        ASSERT_TRUE(row.button.click());
        EXPECT_EQ(openPanels().size(), 1U) << row.key;
    }
}

TEST_F(Registry, APanelThatDoesNotExistIsNotOffered) {
    rows[1].make = nullptr;
    PanelRegistry smaller(shared, menu, {TX, RX, TRX}, rows);
    EXPECT_FALSE(menu.mnuViewTx1.click());
    EXPECT_FALSE(TX.chooseText("Jade"));
    EXPECT_TRUE(TX.chooseText("Opal"));
    try {
        smaller.reopen("JadeV1");
        FAIL();
    } catch (const ToolError& error) {
        EXPECT_EQ(error.number(), 429);
        EXPECT_STREQ(error.what(), "Window JadeV1 cannot be created");
    }
    EXPECT_FALSE(shared.windows.TX1on);
}

TEST_F(Registry, ClosingThePanelsWindowEndsThePanelItsHelpAndTheSupplyTool) {
    choose(menu.mnuViewRx);
    Form* panel = bench.desk.find("OpalV2");
    ASSERT_TRUE(panel->userClose());
    EXPECT_EQ(farewells, Names{"AmberV1"});
    EXPECT_EQ(closings(), (Closed{Tool::AmberV1rflink, Tool::AmberV1rflink_LB2, Tool::frm_Link_RX,
                                  Tool::Help_R1, Tool::frm_PowerSupply}));
    EXPECT_EQ(openPanels(), Names{});
    EXPECT_FALSE(RX.pressed());
    EXPECT_EQ(bench.desk.find("OpalV2"), nullptr);
}

TEST_F(Registry, HidingSaysNoFarewell) {
    choose(menu.mnuViewRx);
    choose(menu.mnuViewRx);
    EXPECT_EQ(farewells, Names{});
    EXPECT_NE(bench.desk.find("OpalV2"), nullptr);
}

TEST_F(Registry, AToolWhoseEndIsDroppedDoesNotKeepTheOthersOpen) {
    tools.onClose[Tool::AmberV1rflink] = [] { throw ActionDropped(); };
    choose(menu.mnuViewRx);
    ASSERT_TRUE(bench.desk.find("OpalV2")->userClose());
    EXPECT_EQ(closings(),
              (Closed{Tool::AmberV1rflink_LB2, Tool::frm_Link_RX, Tool::Help_R1, Tool::frm_PowerSupply}));
    EXPECT_EQ(openPanels(), Names{});
    EXPECT_EQ(bench.desk.find("OpalV2"), nullptr);
}

TEST_F(Registry, AChoiceMadeWhileAToolIsBeingClosedLeavesOnePanelOpen) {
    choose(menu.mnuViewTx0);
    // A tool that sends at its end lets the user act meanwhile.
    tools.onClose[Tool::frm_Link] = [this] {
        if (!shared.windows.RXon) {
            menu.mnuViewRx.click();
        }
    };
    choose(menu.mnuViewTRx);
    EXPECT_EQ(openPanels(), Names{"BerylV3"});
    EXPECT_FALSE(menu.mnuViewRx.checked());
    EXPECT_FALSE(RX.pressed());
    EXPECT_TRUE(TRX.pressed());
}

TEST_F(Registry, TheEndOfTheProgramClosesThreePanelsHiddenOnesToo) {
    for (MenuEntry* entry : {&menu.mnuViewTRx, &menu.mnuViewRx, &menu.mnuViewTx1, &menu.mnuViewTx0}) {
        choose(*entry);
    }
    registry.closeAtExit();
    EXPECT_EQ(farewells, (Names{"OpalV2", "AmberV1", "BerylV3"}));
}

} // namespace zor
