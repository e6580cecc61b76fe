// SPDX-License-Identifier: MIT
#include "program_on_board.h"

#include "desktop/demo_port.h"

namespace zor {

using namespace std::chrono_literals;

namespace {

/// On a second-generation LoadBoard.
class Connection : public ProgramOnBoard {
  protected:
    void start(QStringList arguments = {}) {
        arguments << "--kind"
                  << "lb2";
        ProgramOnBoard::start(arguments);
    }

    bool connected() {
        return chosen() && wait([this] {
                   return main->linkBar.CB_Mode.position() == 0 &&
                          main->linkBar.CommStatus.text() == "Comm. OK";
               });
    }

    void send(const std::string& line) {
        loop.perform([&] { main->bench().connect->Send_To_LoadBoard(line); });
    }
};

} // namespace

TEST_F(Connection, ABoardIsFoundAndConnectedWithoutAClick) {
    start();
    ASSERT_TRUE(connected());
    EXPECT_EQ(main->linkBar.LoadboardList.text(), "LoadBoard 2.x: Com1");
    EXPECT_EQ(main->bench().link.LoadBoardRev, 2);
    EXPECT_NE(main->bench().link.UsbLocation, 0);
    EXPECT_TRUE(dialogs.boxes.empty());
}

/// The board that the program itself offers, at its start or later.
class OfferedBoard : public Connection {
  protected:
    OfferedBoard() { demo.board.farEnd = QStringLiteral("lively"); }

    bool searchIsOver() {
        return wait([this] { return main->linkBar.Connect.enabled(); });
    }
    void connect() {
        loop.perform([this] { main->linkBar.Connect.click(); });
    }
    void expectNewAfterItsDeath() {
        std::string before = devices.path(1);
        dialogs.boxes.clear();
        demo.board.tell("quit");
        ASSERT_TRUE(searchIsOver());
        connect();
        ASSERT_TRUE(connected());
        send("RS\r");
        EXPECT_EQ(main->bench().link.Last7.substr(2, 2), "OK");
        EXPECT_EQ(dialogs.boxes.size(), 1U);
    }

    const QStringList kind{QStringLiteral("--kind"), QStringLiteral("lb2")};
    DemoPort demo{devices};
};

TEST_F(OfferedBoard, IsStartedAnewByConnectWhenItDied) {
    ASSERT_TRUE(demo.offer(kind));
    startWithoutBoard();
    ASSERT_TRUE(connected());
    demo.board.mount("kt3100");
    expectNewAfterItsDeath();
}

TEST_F(OfferedBoard, IsStartedAnewWhereItWasOfferedInTheMidstToo) {
    startWithoutBoard();
    Subscription mounting = demo.mountOnOpening(desk, {});
    ASSERT_TRUE(searchIsOver());
    EXPECT_EQ(main->linkBar.LoadBoard.text(), "not found");
    // A chip that is chosen before there is a board waits for it.
    loop.perform([this] { main->menu.mnuViewTx0.click(); });
    ASSERT_TRUE(demo.offer(kind));
    connect();
    ASSERT_TRUE(connected());
    expectNewAfterItsDeath();
    expectNewAfterItsDeath();
}

TEST_F(Connection, AnExchangeEndsInThePrompt) {
    start({"--status", "5F"});
    ASSERT_TRUE(connected());
    send("RS\r");
    EXPECT_EQ(main->bench().link.Last7, "\n\rOK\n\r>");
    send("no such command\r");
    EXPECT_EQ(main->bench().connect->ComFlag, 1);
}

TEST_F(Connection, ATimeOutReopensThePortAndTheCallerGoesOn) {
    start({"--delay", "1600"});
    // The search finds nothing in its 1.2 s; the port is opened by hand.
    ASSERT_TRUE(
        wait([this] { return main->bench().link.CommState() == 0 && main->linkBar.Connect.enabled(); }, 15s));
    main->bench().connect->open(1, {});
    auto begun = loop.now();
    send("Z3\r");
    auto took = loop.now() - begun;
    EXPECT_GE(took, 1190ms);
    EXPECT_TRUE(main->bench().connect->isOpen());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Connection, ABoardPulledOutInTheMiddleOfAnExchangeIsToldOnce) {
    start();
    ASSERT_TRUE(connected());
    loop.startTimer(1ms, EventLoop::Repeat::Once, [this] { board.stop(); });
    // Long enough on the wire for the board to go in the middle of it.
    send(std::string(200, 'x') + "\r");
    ASSERT_TRUE(wait([this] { return !dialogs.boxes.empty(); }));
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "LoadBoard Communication Error!");
    EXPECT_EQ(dialogs.boxes[0].text, "Loadboard disconnected!\r\nPlease press connect again!");
    EXPECT_FALSE(main->bench().connect->isOpen());
    EXPECT_EQ(main->linkBar.LoadboardList.text(), "Press connect");
    send("Z3\r");
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_EQ(dialogs.boxes[1].title, "USB communication error");
}

TEST_F(Connection, GarbageOnTheLineIsNoPromptAndNoCrash) {
    start({"--noise", "0.3", "--seed", "7"});
    wait([this] { return main->bench().link.CommState() == 0; }, 15s);
    if (!main->bench().connect->isOpen()) {
        main->bench().connect->open(1, {});
    }
    for (int i = 0; i < 3; ++i) {
        send("RS\r");
    }
    EXPECT_TRUE(main->bench().connect->isOpen());
    EXPECT_LE(main->bench().link.Last100.size(), 100U);
}

TEST_F(Connection, DataModeIsEnteredAndLeftOnARealTerminal) {
    start();
    ASSERT_TRUE(connected());
    main->linkBar.CB_Mode.choosePosition(2);
    EXPECT_FALSE(main->bench().connect->isOpen());
    main->linkBar.CB_Mode.choosePosition(0);
    EXPECT_TRUE(main->bench().connect->isOpen());
    EXPECT_EQ(main->bench().link.Last7, "\n\rOK\n\r>");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Connection, LeavingTheProgramEndsASendThatWaits) {
    start();
    ASSERT_TRUE(connected());
    bool goneOn = false;
    loop.startTimer(20ms, EventLoop::Repeat::Once, [this] { main->userClose(); });
    loop.perform([&] {
        main->bench().connect->Send_To_LoadBoard(std::string(300, 'x'));
        goneOn = true;
    });
    EXPECT_FALSE(goneOn);
    EXPECT_TRUE(loop.leaving());
    EXPECT_TRUE(dialogs.boxes.empty());
}

} // namespace zor
