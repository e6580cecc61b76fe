// SPDX-License-Identifier: MIT
// Every sending action of every window against everything that can go wrong on the line and at the desk.
// Whatever happens: nothing crashes or waits for ever, no half line is sent, the port is free again, and once
// the board is well the program connects and the action works.
#include "faults/sending_actions.h"
#include "shell/tool_table.h"
#include "simulator/faulty_line.h"
#include "transcript/station.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <tuple>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr int port = 1;

struct Fault {
    std::string name;
    std::function<void(VirtualBench&, const SendingAction&)> arm;
};

sim::Board& board(VirtualBench& bench) {
    return bench.ports.seat(port).board();
}

/// Faults of the answers stand in front of the board until the bench ends.
class FaultyBench : public VirtualBench {
  public:
    FaultyBench(Delivery delivery, sim::BoardKind kind) {
        ports.delivery = delivery;
        ports.place(port, kind);
        startAndSearch();
    }

    void spoil(const sim::FaultPlan& plan) {
        auto out = board(*this).transmit;
        line = std::make_unique<sim::FaultyLine>(board(*this), plan);
        line->transmit = out;
    }
    void mend(sim::BoardKind kind) {
        line.reset();
        ports.place(port, kind);
    }

  private:
    std::unique_ptr<sim::FaultyLine> line;
    /// What plays transcripts.
    transcript::Station station{main(), watchedDialogs};
};

std::vector<Fault> spoiledAnswers() {
    auto spoiled = [](const char* name, sim::FaultPlan plan) {
        return Fault{name, [plan](VirtualBench& bench, const SendingAction&) {
                         static_cast<FaultyBench&>(bench).spoil(plan);
                     }};
    };
    return {
        {"mute", [](VirtualBench& bench, const SendingAction&) { board(bench).setMute(true); }},
        spoiled("slow", {.delay = 900ms}),
        spoiled("after the time-out", {.delay = 1500ms}),
        spoiled("mute after the first answer", {.muteAfter = 1}),
        spoiled("refusing", {.refusalRate = 1}),
        spoiled("garbage in every answer", {.noiseRate = 0.4, .seed = 7}),
        spoiled("a little garbage", {.noiseRate = 0.03, .seed = 11}),
        spoiled("one character at a time", {.splitEvery = 1, .splitGap = 35ms}),
        spoiled("split in the prompt", {.splitEvery = 5, .splitGap = 90ms}),
        spoiled("a line feed behind each prompt", {.trail = "\n"}),
    };
}

std::vector<Fault> lineFaults() {
    std::vector<Fault> all;
    for (int code : {1004, 1006, 1008, 1009, 1010, 1011}) {
        all.push_back(
            {"port error " + std::to_string(code), [code](VirtualBench& bench, const SendingAction&) {
                 bench.after(7ms, [&bench, code] { bench.ports.seat(port).fault(code); });
             }});
    }
    all.push_back({"pulled before",
                   [](VirtualBench& bench, const SendingAction&) { bench.ports.seat(port).unplug(); }});
    // A command with its answer takes about 8 ms: these fall into, between and behind the first dozen of
    // them.
    for (int milliseconds = 1; milliseconds < 100; milliseconds += 9) {
        all.push_back({"pulled after " + std::to_string(milliseconds) + " ms",
                       [milliseconds](VirtualBench& bench, const SendingAction&) {
                           bench.after(std::chrono::milliseconds(milliseconds),
                                       [&bench] { bench.ports.seat(port).unplug(); });
                       }});
    }
    return all;
}

std::vector<Fault> deskFaults() {
    return {
        {"box open while ticks come",
         [](VirtualBench& bench, const SendingAction&) {
             board(bench).setMute(true);
             bench.dialogs.whileOpen = [&bench] { bench.run(3s); };
             bench.after(40ms, [&bench] { bench.ports.seat(port).unplug(); });
         }},
        {"window closed while it waits",
         [](VirtualBench& bench, const SendingAction& action) {
             board(bench).setDelay(300ms);
             bench.after(30ms, [&bench, form = action.form] {
                 if (Form* window = bench.desk.find(form); window != nullptr && !form.empty()) {
                     window->userClose();
                 }
             });
         }},
        {"second action inside the first",
         [](VirtualBench& bench, const SendingAction& action) {
             board(bench).setDelay(50ms);
             bench.after(20ms, [&bench, &action] { action.act(bench); });
         }},
        {"disconnected while it waits",
         [](VirtualBench& bench, const SendingAction&) {
             board(bench).setDelay(300ms);
             bench.after(30ms, [&bench] { bench.at("main", "Disconnect").click(); });
         }},
        {"data mode while it waits",
         [](VirtualBench& bench, const SendingAction&) {
             board(bench).setDelay(300ms);
             bench.after(30ms, [&bench] { bench.at("main", "CB_Mode").choosePosition(1); });
         }},
    };
}

std::vector<Fault> faults() {
    std::vector<Fault> all = spoiledAnswers();
    for (std::vector<Fault>& more : std::vector<std::vector<Fault>>{lineFaults(), deskFaults()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

void openWindow(VirtualBench& bench, const SendingAction& action) {
    if (action.form.empty()) {
        return;
    }
    if (action.panel != nullptr && bench.shared().openPanel() == nullptr) {
        ASSERT_TRUE((bench.main().menu.*action.panel).click());
    }
    Form* window = bench.desk.find(action.form);
    if (action.opener == nullptr) {
        bench.shared().tools.open(findToolRow(action.form)->tool);
    } else if (window == nullptr || !window->isOpen()) {
        ASSERT_TRUE((bench.main().menu.*action.opener).click());
    }
    ASSERT_NE(bench.desk.find(action.form), nullptr) << action.form;
}

/// A command word and how many hexadecimal digits follow it.
struct CommandForm {
    std::string_view word;
    std::size_t fewest;
    std::size_t most;
};

constexpr CommandForm commandForms[] = {
    {"", 0, 0},
    {"i", 0, 0},
    {"V", 1, 2},
    {"A0", 0, 0},
    {"A1", 0, 0},
    {"AD", 0, 0},
    {"H", 1, 1},
    {"L", 1, 1},
    {"Z", 1, 1},
    {"X0", 0, 0},
    {"X1", 0, 0},
    {"X2", 0, 0},
    {"WSCC", 0, 0},
    {"RI", 0, 0},
    {"RS", 0, 2},
    {"S1", 2, 2},
    {"S2", 4, 4},
    // A byte of a FIFO.
    {"WS", 2, 2},
    // A loader's commands and the records of its downloads.
    {"C", 0, 3},
    {":", 10, 42},
    {"L:", 10, 42},
    {"ri", 0, 0},
    {"F0", 0, 0},
    {"T0", 0, 0},
    {"y", 2, 2},
    {"d", 1, 1},
    {"RO", 0, 0},
};

/// A packet command with its arguments between commas.
constexpr std::string_view listCommands[] = {"F1,", "F2,", "F3,", "F11,", "F12,", "F13,", "T14,"};

bool isWholeList(std::string_view line) {
    return std::any_of(std::begin(listCommands), std::end(listCommands), [line](std::string_view word) {
        std::string_view rest = line.substr(std::min(word.size(), line.size()));
        return line.starts_with(word) && !rest.empty() && rest.back() != ',' &&
               rest.find_first_not_of("0123456789ABCDEF,") == std::string_view::npos;
    });
}

bool isWholeCommand(std::string_view line) {
    if (line.ends_with('\n')) {
        // A script's lines end in CR LF.
        line.remove_suffix(1);
    }
    if (line == "WS03,00,00" || line.starts_with("SX02,")) {
        // The EEPROM's lists of bytes; a list may end anywhere.
        return line.find_first_not_of("0123456789ABCDEF,", 2) == std::string_view::npos;
    }
    return isWholeList(line) ||
           std::any_of(std::begin(commandForms), std::end(commandForms), [line](const CommandForm& form) {
               std::string_view digits = line.substr(std::min(form.word.size(), line.size()));
               // The register tool puts a blank between.
               if (digits.starts_with(' ')) {
                   digits.remove_prefix(1);
               }
               return line.starts_with(form.word) && digits.size() >= form.fewest &&
                      digits.size() <= form.most &&
                      digits.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
           });
}

void expectWholeLines(VirtualBench& bench) {
    for (const std::string& line : bench.takeSent()) {
        EXPECT_TRUE(isWholeCommand(line)) << "half a line: " << line;
    }
}

/// Whatever state the bars are in, gets to a connection the way a user would.
void reconnect(FaultyBench& bench, sim::BoardKind kind) {
    bench.dialogs.whileOpen = nullptr;
    bench.mend(kind);
    Element& connect = bench.at("main", "Connect");
    Element& disconnect = bench.at("main", "Disconnect");
    if (!connect.active() && !disconnect.active()) {
        bench.at("main", "CB_Mode").choosePosition(0);
    }
    if (disconnect.active()) {
        disconnect.click();
    }
    ASSERT_TRUE(connect.click());
    bench.run(15s);
    EXPECT_TRUE(bench.channel().isOpen());
    EXPECT_EQ(bench.channel().settings().format, "19200,N,8,1");
    // The loader refuses the last command of the connecting.
    EXPECT_EQ(bench.at("main", "CommStatus").text(),
              kind == sim::BoardKind::Loader ? "reading..." : "Comm. OK");
}

/// How a driver hands on what it received bears on what a wait for the prompt gets to see.
class FaultMatrix : public ::testing::TestWithParam<std::tuple<SendingAction, Delivery>> {
  protected:
    const SendingAction& action = std::get<SendingAction>(GetParam());
    const Delivery delivery = std::get<Delivery>(GetParam());
};

TEST_P(FaultMatrix, LeavesTheProgramAbleToWork) {
    for (const Fault& fault : faults()) {
        SCOPED_TRACE(fault.name);
        FaultyBench bench(delivery, action.board);
        openWindow(bench, action);
        bench.takeSent();

        fault.arm(bench, action);
        action.act(bench);
        bench.run(20s);
        expectWholeLines(bench);
        EXPECT_EQ(bench.shared().link.CommState(), 0);

        reconnect(bench, action.board);
        openWindow(bench, action);
        bench.takeSent();
        bench.dialogs.boxes.clear();
        action.act(bench);
        bench.run(5s);
        EXPECT_FALSE(bench.takeSent().empty()) << "the action no longer reaches the board";
        std::erase_if(bench.dialogs.boxes, [&](const Box& box) { return box.title == action.endBox; });
        EXPECT_TRUE(bench.dialogs.boxes.empty()) << bench.dialogs.boxes.front().text;
        EXPECT_EQ(bench.shared().link.CommState(), 0);
    }
}

TEST_P(FaultMatrix, EndsWhenTheProgramIsLeftWhileItWaits) {
    for (auto moment : {1ms, 8ms, 30ms, 120ms}) {
        FaultyBench bench(delivery, action.board);
        openWindow(bench, action);
        bench.takeSent();
        board(bench).setDelay(300ms);
        bench.after(moment, [&bench] { bench.main().userClose(); });
        try {
            action.act(bench);
            bench.run(20s);
        } catch (const VirtualTimeError& error) {
            ADD_FAILURE() << error.what();
        }
        expectWholeLines(bench);
        EXPECT_TRUE(bench.main().isClosed());
        EXPECT_FALSE(bench.channel().isOpen());
        EXPECT_TRUE(bench.dialogs.boxes.empty()) << bench.dialogs.boxes.front().text;
    }
}

std::string nameOf(const ::testing::TestParamInfo<FaultMatrix::ParamType>& row) {
    Delivery delivery = std::get<Delivery>(row.param);
    return std::get<SendingAction>(row.param).name + "_in_reads_of_" +
           (delivery == allWaiting ? "all" : std::to_string(delivery));
}

INSTANTIATE_TEST_SUITE_P(EveryWindow, FaultMatrix,
                         ::testing::Combine(::testing::ValuesIn(sendingActions()),
                                            ::testing::Values(Delivery(1), Delivery(2), allWaiting)),
                         nameOf);

} // namespace

} // namespace zor::testing
