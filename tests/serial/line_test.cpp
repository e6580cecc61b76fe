// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_loop.h"
#include "desktop/adapters/qt_serial_port.h"
#include "desktop/demo_board.h"
#include "support/as_ordinary_user.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

namespace zor {

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 3s;

/// A simulated board on a pseudo-terminal, which is the machine's only port.
class Line : public testing::Test {
  protected:
    void startBoard(QStringList arguments = {}) {
        arguments << "--kind"
                  << "lb2";
        QString terminal = board.start(arguments);
        ASSERT_FALSE(terminal.isEmpty());
        // By a name of our own: another program may be given the terminal's as soon as it is free.
        ASSERT_TRUE(QFile::link(terminal, device));
        ASSERT_EQ(::chmod(place.path().toUtf8().constData(), 0755), 0);
        devices.addDevice(device.toStdString(), "LoadBoard");
    }

    void pullOutBoard() {
        board.stop();
        QFile::remove(device);
    }

    std::unique_ptr<SerialPort> port() {
        auto made = ports.create();
        made->received = [this](char c) { text += c; };
        return made;
    }

    /// @return false if it did not come about in time
    bool wait(const std::function<bool()>& condition) {
        bool late = false;
        auto timer = loop.startTimer(patience, EventLoop::Repeat::Once, [&] { late = true; });
        loop.runUntil([&] { return late || condition(); });
        loop.stopTimer(timer);
        return !late;
    }

    bool answered() const { return text.ends_with("\n\rOK\n\r>"); }

    QTemporaryDir nothing;
    QTemporaryDir place;
    QString device = place.filePath(QStringLiteral("board"));
    QtLoop loop;
    SerialDevices devices{"/dev", nothing.path().toStdString()};
    QtSerialPorts ports{loop, devices};
    DemoBoard board;
    std::string text;
};

int openError(SerialPort& port, int number) {
    try {
        port.open(number, {});
        return 0;
    } catch (const ToolError& error) {
        return error.number();
    }
}

} // namespace

TEST_F(Line, ALineIsAnsweredCharacterByCharacter) {
    startBoard();
    auto line = port();
    line->open(1, {.inputBuffer = 4096, .dtr = true, .rts = true});
    line->write("i\r");
    EXPECT_TRUE(wait([&] { return answered(); }));
    EXPECT_NE(text.find("LoadBoard"), std::string::npos);
    line->close();
    EXPECT_FALSE(line->isOpen());
}

TEST_F(Line, AMissingPortAndAPortInUseHaveTheirNumbers) {
    startBoard();
    auto first = port();
    auto second = port();
    EXPECT_EQ(openError(*first, 2), 8002);
    EXPECT_EQ(openError(*first, 0), 8002);
    EXPECT_EQ(openError(*first, 1), 0);
    EXPECT_EQ(openError(*first, 1), 8005);
    EXPECT_EQ(openError(*second, 1), 8005);
    first->close();
    EXPECT_EQ(openError(*second, 1), 0);
}

TEST_F(Line, APortThatIsOpenIsHeldAgainstTheUsbDriver) {
    startBoard();
    auto line = port();
    line->open(1, {});
    EXPECT_TRUE(devices.holds(devices.path(1)));
    line->close();
    EXPECT_FALSE(devices.holds(devices.path(1)));
}

TEST_F(Line, WritingToAClosedPortIsRefused) {
    startBoard();
    auto line = port();
    try {
        line->write("i\r");
        FAIL() << "it took the line";
    } catch (const ToolError& error) {
        EXPECT_EQ(error.number(), 8018);
    }
}

TEST_F(Line, ADeviceThatHasGoneIsToldByClosing) {
    startBoard();
    auto line = port();
    line->open(1, {});
    line->write("i\r");
    ASSERT_TRUE(wait([&] { return answered(); }));
    pullOutBoard();
    wait([] { return false; });
    EXPECT_TRUE(line->isOpen());
    line->write("i\r");
    try {
        line->close();
        FAIL() << "it closed as if nothing had happened";
    } catch (const ToolError& error) {
        EXPECT_EQ(error.number(), 8002);
    }
    EXPECT_FALSE(line->isOpen());
    EXPECT_EQ(openError(*line, 1), 8002);
}

TEST_F(Line, AnActionThatWaitsGetsTheRestOfWhatWasReadWithItsCharacter) {
    int farEnd = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(farEnd, 0);
    ASSERT_EQ(::grantpt(farEnd), 0);
    ASSERT_EQ(::unlockpt(farEnd), 0);
    devices.addDevice(::ptsname(farEnd), "LoadBoard");
    auto line = ports.create();
    bool inTime = false;
    line->received = [&](char c) {
        text += c;
        if (c == 'a') {
            inTime = wait([&] { return text.ends_with('c'); });
        }
    };
    line->open(1, {});
    ASSERT_EQ(::write(farEnd, "abc", 3), 3);
    EXPECT_TRUE(wait([&] { return text.size() == 3; }));
    EXPECT_TRUE(inTime);
    EXPECT_EQ(text, "abc");
    line->close();
    ::close(farEnd);
}

TEST_F(Line, WhatAnActionWaitsForInsideAReceivedCharacterComesInOrder) {
    startBoard();
    auto line = ports.create();
    bool waited = false;
    line->received = [&](char c) {
        text += c;
        if (!waited) {
            waited = true;
            line->write("Z3\r");
            wait([&] { return text.size() > 60 && answered(); });
        }
    };
    line->open(1, {});
    line->write("i\r");
    EXPECT_TRUE(wait([&] {
        std::size_t first = text.find("\n\rOK\n\r>");
        return first != std::string::npos && text.find("\n\rOK\n\r>", first + 1) != std::string::npos;
    }));
    EXPECT_LT(text.find("LoadBoard"), text.find("OK"));
}

TEST_F(Line, ClosingRightAfterWritingLosesNothing) {
    startBoard();
    // With the chip select high nothing answers and the line reads FF, with it low zeros: the board tells
    // whether the command before the closing reached it.
    for (auto [command, byte] : {std::pair("H2\r", "FF"), std::pair("L2\r", "00"), std::pair("H2\r", "FF")}) {
        auto line = port();
        line->open(1, {});
        line->write(command);
        line->close();
        line = port();
        text.clear();
        line->open(1, {.clearInput = true});
        line->write("RS\r");
        // The prompt of the command before may still come in front of it.
        std::string reply = byte + std::string(" \n\rOK\n\r>");
        EXPECT_TRUE(wait([&] { return text.ends_with(reply); })) << command << text;
        line->close();
    }
}

TEST_F(Line, ADeviceOfAnotherUserIsToldByItsPath) {
    startBoard();
    ASSERT_EQ(::chmod(devices.path(1).c_str(), 0), 0);
    EXPECT_TRUE(holdsForOrdinaryUser([this] {
        auto line = port();
        try {
            line->open(1, {});
            ADD_FAILURE() << "it opened a protected device";
        } catch (const PortAccessError& error) {
            EXPECT_EQ(error.devicePath(), devices.path(1));
        }
    }));
}

} // namespace zor
