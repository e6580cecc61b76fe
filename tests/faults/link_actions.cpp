// SPDX-License-Identifier: MIT
#include "faults/link_actions.h"

#include "panels/common/chip_panel.h"

#include <utility>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

/// Does things in a window for as long as it is there.
class Hand {
  public:
    Hand(VirtualBench& ownBench, const char* windowName)
        : bench(ownBench)
        , name(windowName) {}

    const Hand& retick(const char* element) const { return tick(element, false).tick(element, true); }
    const Hand& tick(const char* element, bool on) const {
        if (there()) {
            bench.at(name, element).tick(on);
        }
        return *this;
    }
    const Hand& click(const char* element) const {
        if (there()) {
            bench.at(name, element).click();
        }
        return *this;
    }
    const Hand& run(std::chrono::milliseconds time) const {
        bench.run(time);
        return *this;
    }
    const Hand& packet() const {
        if (bench.ports.seats().contains(1)) {
            bench.ports.seat(1).board().emit("\n\rReceived packet: 05 bytes: PKT 1\n\rOK\n\r>");
        }
        return *this;
    }
    /// Cut, doubled, longer than told, among garbage.
    const Hand& spoiltReports() const {
        for (const char* report :
             {"\n\rReceived pack\n\rOK\n\r>", "\n\rReceived packet: 99 bytes: short\n\rOK\n\r>",
              "\n\rReceived packet: 02 bytes: longer than told\n\rOK\n\r>",
              "\n\rReceived packet: 01 bytes: a\n\rOK\n\r>\n\rReceived packet: 01 bytes: a\n\rOK\n\r>",
              "\x01>\r\xFF\n\rReceived packet: -1 bytes: \n\rOK\n\r>"}) {
            if (bench.ports.seats().contains(1)) {
                bench.ports.seat(1).board().emit(report);
            }
            bench.run(150ms);
        }
        return *this;
    }
    /// The panel goes out of sight and takes the window with it.
    const Hand& hidePanel() const {
        if (ChipPanel* panel = bench.shared().openPanel(); panel != nullptr && there()) {
            for (MenuEntry MainMenu::*entry :
                 {&MainMenu::mnuViewTx0, &MainMenu::mnuViewRx, &MainMenu::mnuViewTRx}) {
                if ((bench.main().menu.*entry).checked()) {
                    (bench.main().menu.*entry).click();
                    break;
                }
            }
        }
        return *this;
    }
    /// Sets the panel's tick and comes back to the window, which looks at it then.
    const Hand& panelTick(const char* element) const {
        if (ChipPanel* panel = bench.shared().openPanel(); panel != nullptr && there()) {
            panel->userActivate();
        }
        // Coming to the front may have waited for the board, and the program may have been left meanwhile.
        if (ChipPanel* panel = bench.shared().openPanel()) {
            panel->find(element)->tick(true);
        }
        if (there()) {
            bench.desk.find(name)->userActivate();
        }
        return *this;
    }
    const Hand& leave() const {
        bench.shared().tools.open(Tool::Terminal);
        bench.shared().tools.close(Tool::Terminal);
        return *this;
    }
    const Hand& close() const {
        if (Form* window = bench.desk.find(name)) {
            window->userClose();
        }
        return *this;
    }

  private:
    [[nodiscard]] bool there() const { return bench.desk.find(name) != nullptr; }

    VirtualBench& bench;
    const char* name;
};

struct Row {
    const char* name;
    const char* window;
    MenuEntry MainMenu::*panel;
    void (*act)(const Hand& hand);
};

} // namespace

std::vector<SendingAction> linkActions() {
    constexpr const char* carrier = "frm_Link";
    constexpr const char* output = "frm_Link_RX";
    constexpr const char* first = "AmberV1rflink";
    constexpr const char* second = "AmberV1rflink_LB2";
    constexpr const char* packets = "Frm_BerylRfLinkTest";
    constexpr auto opal = &MainMenu::mnuViewTx0;
    constexpr auto beryl = &MainMenu::mnuViewTRx;
    constexpr auto amber = &MainMenu::mnuViewRx;
    // clang-format off
    static const Row rows[] = {
        {"Carrier_Manual",        carrier, opal,  [](const Hand& h) { h.retick("cb_manual").click("pb_H").click("pb_L").tick("cb_manual", false); }},
        {"Carrier_Toggle",        carrier, opal,  [](const Hand& h) { h.retick("cb_astabil").run(2500ms).tick("cb_astabil", false); }},
        {"Carrier_Transceiver",   carrier, beryl, [](const Hand& h) { h.retick("cb_manual").tick("cb_astabil", true).run(1500ms); }},
        {"Carrier_Sequence",      carrier, beryl, [](const Hand& h) { h.panelTick("EnTXLatch").retick("cb_pn15").run(100ms).tick("cb_pn15", false); }},
        {"Carrier_SequenceLeft",  carrier, beryl, [](const Hand& h) { h.panelTick("EnTXLatch").retick("cb_pn15").leave(); }},
        {"Carrier_PanelHides",    carrier, opal,  [](const Hand& h) { h.retick("cb_astabil").run(500ms).hidePanel(); }},
        {"Carrier_Left",          carrier, beryl, [](const Hand& h) { h.retick("cb_manual").leave(); }},
        {"Carrier_Closed",        carrier, beryl, [](const Hand& h) { h.retick("cb_manual").close(); }},
        {"DataOutput_Monitor",    output,  amber, [](const Hand& h) { h.retick("cb_MoniEn").run(400ms).tick("cb_MoniEn", false); }},
        {"DataOutput_Left",       output,  beryl, [](const Hand& h) { h.retick("cb_MoniEn").run(100ms).leave(); }},
        {"DataOutput_Closed",     output,  amber, [](const Hand& h) { h.retick("cb_MoniEn").close(); }},
        {"DataOutput_PanelHides", output,  amber, [](const Hand& h) { h.retick("cb_MoniEn").run(70ms).hidePanel(); }},
        {"ReceiverLink1_Packets", first,   amber, [](const Hand& h) { h.click("EnRx").packet().run(400ms).packet().run(400ms).click("EnRx"); }},
        {"ReceiverLink1_Closed",  first,   amber, [](const Hand& h) { h.click("EnRx").packet().run(70ms).close(); }},
        {"ReceiverLink2_Packets", second,  amber, [](const Hand& h) { h.click("EnRx").packet().run(400ms).packet().run(400ms).click("EnRx"); }},
        {"ReceiverLink2_Left",    second,  amber, [](const Hand& h) { h.click("EnRx").packet().run(70ms).leave(); }},
        {"ReceiverLink2_Spoilt",  second,  amber, [](const Hand& h) { h.click("EnRx").spoiltReports().click("EnRx"); }},
        {"ReceiverLink2_PanelHides", second, amber, [](const Hand& h) { h.click("EnRx").packet().run(70ms).hidePanel(); }},
        {"TransceiverLink_Spoilt", packets, beryl, [](const Hand& h) { h.click("PB_Enable").spoiltReports().click("PB_Enable"); }},
        {"TransceiverLink_PanelHides", packets, beryl, [](const Hand& h) { h.click("PB_Enable").packet().run(70ms).hidePanel(); }},
    };
    // clang-format on
    std::vector<SendingAction> all;
    for (const Row& row : rows) {
        SendingAction action;
        action.name = row.name;
        action.form = row.window;
        action.opener = nullptr;
        action.panel = row.panel;
        action.act = [row](VirtualBench& bench) { row.act(Hand(bench, row.window)); };
        all.push_back(std::move(action));
    }
    return all;
}

} // namespace zor::testing
