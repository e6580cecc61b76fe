// SPDX-License-Identifier: MIT
#include "simulator/board_on_line.h"
#include "simulator/far_end.h"
#include "simulator/radio_station.h"

#include <gtest/gtest.h>

namespace zor::sim {

namespace {

/// Two boards that hear each other.
struct Air {
    BoardOnLine a;
    BoardOnLine b;
    Ether ether;
    RadioStation stationA{a.board, ether};
    RadioStation stationB{b.board, ether};

    static void lines(BoardOnLine& bench, std::initializer_list<const char*> all) {
        for (const char* line : all) {
            bench.ask(line);
        }
        bench.said.clear();
    }
    /// The panel's words as a KT3100 has them after its start, with receiver and FIFO on, and an armed board.
    static void receive(BoardOnLine& bench, Chip chip = Chip::KT3100) {
        bench.board.setChip(chip);
        lines(bench, {"S28048", "S2A7D0", "S28288", "S29080", "S2C623", "S2CA80", "F11,13,100,1", "S2CA82"});
    }
    static void transmit(BoardOnLine& bench) {
        bench.board.setChip(Chip::KT3100);
        lines(bench, {"S28088", "S2A7D0", "S28228", "S29800", "S2C623"});
    }
    void sendHello() { a.ask("T14,AA,AA,2D,D4,48,45,4C,4C,4F,0D"); }
};

const char* const hello = "\n\rReceived packet: 06 bytes: HELLO\r\n\rOK\n\r>";

/// The level that a board's monitor reads.
char dataOf(BoardOnLine& bench) {
    return at(bench.ask("RO"), 15, 5, 1).front();
}

} // namespace

TEST(Ether, APacketReachesABoardThatIsSetUpAlike) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    air.sendHello();
    EXPECT_EQ(air.b.said, hello);
    // Ten bytes at 9579 bit/s.
    EXPECT_EQ(air.b.delays.back(), 8);
    air.b.said.clear();
    air.sendHello();
    EXPECT_EQ(air.b.said, "") << "a board that has reported is not armed any more";
}

TEST(Ether, NothingArrivesWhereTheSettingsDiffer) {
    struct Row {
        const char* what;
        std::initializer_list<const char*> sender;
        std::initializer_list<const char*> receiver;
    };
    const Row rows[] = {
        {"band", {"S28098"}, {}},
        {"frequency", {"S2A7FF"}, {}},
        {"deviation beyond the bandwidth", {"S29870"}, {}},
        {"data rate", {"S2C622"}, {}},
        {"receiver off", {}, {"S28208"}},
        {"FIFO off", {}, {"S28008"}},
        {"fill off", {}, {"S2CA80"}},
        {"not armed", {}, {"F0"}},
        {"Data mode", {}, {"X2"}},
    };
    for (const Row& row : rows) {
        Air air;
        Air::transmit(air.a);
        Air::receive(air.b);
        Air::lines(air.a, row.sender);
        Air::lines(air.b, row.receiver);
        air.sendHello();
        EXPECT_EQ(air.b.said, "") << row.what;
    }
}

TEST(Ether, APacketWithoutTheSynchronPatternIsHeardByAFillThatAlwaysBegins) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    air.a.ask("T14,48,49,0D");
    EXPECT_EQ(air.b.said, "");
    Air::lines(air.b, {"S2CA86"});
    air.a.ask("T14,48,49,0D");
    EXPECT_EQ(air.b.said, "\n\rReceived packet: 03 bytes: HI\r\n\rOK\n\r>");
}

TEST(Ether, TheLaterTransceiverHearsItsOwnPattern) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b, Chip::KT3101);
    Air::lines(air.b, {"S2CE5A"});
    air.sendHello();
    EXPECT_EQ(air.b.said, "");
    air.a.ask("T14,AA,2D,5A,48,49,0D");
    EXPECT_EQ(air.b.said, "\n\rReceived packet: 03 bytes: HI\r\n\rOK\n\r>");
}

TEST(Ether, AReceiverHearsATransceiver) {
    Air air;
    Air::transmit(air.a);
    air.b.board.setChip(Chip::KT2100);
    Air::lines(air.b, {"S2813A", "S2A7D0", "S2C0C1", "S2C823", "S2CE85", "F11,13,100,1", "S2CE87"});
    air.sendHello();
    EXPECT_EQ(air.b.said, hello);
}

TEST(Ether, WeaknessTurnsIntoTheSameWrongBitsEachTime) {
    auto played = [] {
        Air air;
        Air::transmit(air.a);
        Air::receive(air.b);
        Air::lines(air.b, {"S2CA80", "F13,13,60,1", "S2CA86"});
        air.ether.setPathLoss(119);
        std::string line = "T14,";
        for (int byte = 0; byte < 60; ++byte) {
            line += "55,";
        }
        air.a.ask(line);
        return air.b.said;
    };
    std::string said = played();
    EXPECT_NE(said.find("Received packet: 60 bytes: "), std::string::npos);
    EXPECT_NE(said.find_first_not_of('U', 29), said.size() - 7) << "some bits are wrong";
    EXPECT_EQ(said, played());
    EXPECT_LT(bitErrorRate(-100, 9600, 0), 1e-9);
    EXPECT_GT(bitErrorRate(-118, 9600, 0), 1e-3);
    EXPECT_NEAR(bitErrorRate(-160, 9600, 0), 0.5, 0.01);
}

TEST(Ether, ACarrierAndItsLevelAreSeenOnTheOthersDataLine) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    EXPECT_EQ(dataOf(air.b), '0');
    Air::lines(air.a, {"H3", "y11"});
    EXPECT_EQ(dataOf(air.b), '1');
    Air::lines(air.a, {"y01"});
    EXPECT_EQ(dataOf(air.b), '0');
    // With the other polarity a low level is the higher frequency.
    Air::lines(air.a, {"S29900"});
    EXPECT_EQ(dataOf(air.b), '1');
    Air::lines(air.a, {"S28200"});
    EXPECT_EQ(dataOf(air.b), '0') << "without a carrier the line is as the bench has it";
}

TEST(Ether, ThePseudoRandomSequenceMovesTheLine) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    air.a.ask("y21");
    std::string levels;
    for (int sample = 0; sample < 256; ++sample) {
        levels += dataOf(air.b);
    }
    EXPECT_GT(std::count(levels.begin(), levels.end(), '1'), 60);
    EXPECT_GT(std::count(levels.begin(), levels.end(), '0'), 60);
}

TEST(Ether, TheReceivedSignalBitAnswersAboveItsThreshold) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    auto signal = [&air] { return (air.b.board.radio().status()[0] & 0x01) != 0; };
    EXPECT_TRUE(signal());
    air.ether.setPathLoss(102);
    EXPECT_TRUE(signal());
    air.ether.setPathLoss(104);
    EXPECT_FALSE(signal());
    // Threshold -61 dBm; then 20 dB less gain.
    air.ether.setPathLoss(60);
    Air::lines(air.b, {"S29087"});
    EXPECT_TRUE(signal());
    Air::lines(air.b, {"S2909F"});
    EXPECT_FALSE(signal());
    Air::lines(air.b, {"S29080"});
    Air::lines(air.a, {"S28200"});
    EXPECT_FALSE(signal());
}

TEST(Ether, TheCrystalsDifferenceIsTheOffset) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    // 315 MHz x 20 ppm = 6.3 kHz, 2.52 steps of 2.5 kHz.
    air.stationA.setCrystalError(20);
    EXPECT_EQ(air.b.board.radio().status()[1] & 0x1F, 3);
    air.stationB.setCrystalError(30);
    EXPECT_EQ(air.b.board.radio().status()[1] & 0x1F, 0x1F) << "-1.26 steps";
    air.stationA.setCrystalError(300);
    EXPECT_EQ(air.b.board.radio().status()[0] & 0x01, 0) << "out of the bandwidth";
}

TEST(Ether, TheStrongestCarrierIsTheOneThatIsHeard) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    BoardOnLine c;
    RadioStation stationC(c.board, air.ether);
    Air::transmit(c);
    Air::lines(c, {"S29802", "y11"});
    EXPECT_EQ(dataOf(air.b), '0');
    Air::lines(air.a, {"S29803"});
    EXPECT_EQ(dataOf(air.b), '1');
}

TEST(Ether, BytesForABoardThatDoesNotWaitFillItsRadiosFifo) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    Air::lines(air.b, {"F0"});
    air.sendHello();
    EXPECT_EQ(air.b.board.radio().fifoFill(), 6u);
    EXPECT_EQ(air.b.said, "");
}

TEST(Ether, AFillGoesOnOverPacketsThatDoNotEndIt) {
    Air air;
    Air::transmit(air.a);
    Air::receive(air.b);
    Air::lines(air.b, {"F12,33,100,1"});
    air.a.ask("T14,2D,D4,41,42");
    EXPECT_EQ(air.b.said, "");
    air.a.ask("T14,43,21");
    EXPECT_EQ(air.b.said, "\n\rReceived packet: 04 bytes: ABC!\n\rOK\n\r>");
}

TEST(FarEnd, SendsNumberedPacketsOfWhichOneFades) {
    BoardOnLine bench;
    Ether ether;
    RadioStation station(bench.board, ether);
    FarEnd far(bench.board, ether);
    far.setMode(FarEnd::Mode::numbered);
    far.lose(2);
    std::string heard;
    for (int packet = 1; packet <= 3; ++packet) {
        Air::receive(bench);
        far.act();
        heard += bench.said;
    }
    EXPECT_EQ(heard, "\n\rReceived packet: 10 bytes: PKT 00001\r\n\rOK\n\r>"
                     "\n\rReceived packet: 10 bytes: PKT 00003\r\n\rOK\n\r>");
}

TEST(FarEnd, SaysAgainWhatItHeardAndKeepsSilentOtherwise) {
    BoardOnLine bench;
    Ether ether;
    RadioStation station(bench.board, ether);
    FarEnd far(bench.board, ether);
    Air::transmit(bench);
    bench.ask("T14,2D,D4,41,0D");
    EXPECT_EQ(far.heardCount(), 1);
    Air::receive(bench);
    far.act();
    EXPECT_EQ(far.interval(), std::nullopt);
    EXPECT_EQ(bench.said, "");
    far.setMode(FarEnd::Mode::echo, std::chrono::milliseconds(500));
    EXPECT_EQ(far.interval(), std::chrono::milliseconds(500));
    far.act();
    EXPECT_EQ(bench.said, "\n\rReceived packet: 02 bytes: A\r\n\rOK\n\r>");
}

TEST(FarEnd, ALivelyOneAnswersOrCountsAndKeysItsCarrier) {
    BoardOnLine bench;
    Ether ether;
    RadioStation station(bench.board, ether);
    FarEnd far(bench.board, ether);
    far.setMode(FarEnd::Mode::lively);
    Air::transmit(bench);
    bench.ask("T14,2D,D4,41,0D");
    Air::receive(bench);
    far.act();
    EXPECT_EQ(bench.said, "\n\rReceived packet: 02 bytes: A\r\n\rOK\n\r>");
    EXPECT_EQ(dataOf(bench), '1');
    Air::receive(bench);
    far.act();
    EXPECT_EQ(bench.said, "\n\rReceived packet: 10 bytes: PKT 00001\r\n\rOK\n\r>");
    EXPECT_EQ(dataOf(bench), '0');
}

TEST(FarEnd, ItsCrystalShowsBehindAPacket) {
    BoardOnLine bench;
    Ether ether;
    RadioStation station(bench.board, ether);
    FarEnd far(bench.board, ether);
    Air::receive(bench);
    EXPECT_EQ(bench.board.radio().status()[1] & 0x1F, 0);
    far.setMode(FarEnd::Mode::numbered);
    far.act();
    // 315 MHz x 12 ppm = 3.78 kHz, 1.5 steps of 2.5 kHz.
    EXPECT_EQ(bench.board.radio().status()[1] & 0x1F, 2);
}

TEST(FarEnd, ItsCarrierMovesTheDataLine) {
    BoardOnLine bench;
    Ether ether;
    RadioStation station(bench.board, ether);
    FarEnd far(bench.board, ether);
    Air::receive(bench);
    far.setMode(FarEnd::Mode::carrier);
    far.act();
    EXPECT_EQ(dataOf(bench), '1');
    far.act();
    EXPECT_EQ(dataOf(bench), '0');
    EXPECT_EQ(farEndMode("carrier"), FarEnd::Mode::carrier);
    EXPECT_EQ(farEndMode("loud"), std::nullopt);
}

TEST(Ether, ABeaconsDataAndClockReachTheStatus) {
    struct Row {
        const char* what;
        std::initializer_list<const char*> words;
        const char* first;
        const char* second;
    };
    // Bits of the second byte: DQD, CRL, and five of offset; of the first: FIFO empty, and DRSSI.
    const Row rows[] = {
        {"its rate", {}, "03", "C0"},
        {"two steps beside", {"S2A7CE"}, "03", "C2"},
        {"another rate", {"S2C624"}, "03", "80"},
        {"without the digital filter", {"S2C23C"}, "03", "80"},
        {"receiver off", {"S28208"}, "00", "00"},
    };
    for (const Row& row : rows) {
        Air air;
        Air::receive(air.b);
        FarEnd far(air.b.board, air.ether);
        far.setBeacon(315e6, 9579);
        Air::lines(air.b, row.words);
        air.b.ask("H2");
        air.b.ask("L2");
        air.b.ask("L0");
        EXPECT_EQ(at(air.b.ask("RS"), 15, 6, 2), row.first) << row.what;
        EXPECT_EQ(at(air.b.ask("RS"), 15, 6, 2), row.second) << row.what;
    }
}

TEST(Ether, AReceiverTellsABeaconsClockInItsFirstByte) {
    Air air;
    air.b.board.setChip(Chip::KT2100);
    Air::lines(air.b, {"S2893A", "S2A7D0", "S2C0C1", "S2C823", "S2CE85"});
    FarEnd far(air.b.board, air.ether);
    far.setBeacon(435e6, 9579);
    auto first = [&air] {
        Air::lines(air.b, {"H2", "L2", "L0"});
        return at(air.b.ask("RS"), 15, 6, 2);
    };
    EXPECT_EQ(first(), "07");
    far.setBeacon(435e6, std::nullopt);
    EXPECT_EQ(first(), "04") << "a bare carrier has no data";
    far.setMode(FarEnd::Mode::silent);
    EXPECT_EQ(first(), "00");
}

} // namespace zor::sim
