// SPDX-License-Identifier: MIT
#include "simulator/program/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor::sim {

namespace {

std::string complaint(const std::vector<std::string>& arguments) {
    try {
        [[maybe_unused]] Options options = parseOptions(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(SimulatorOptions, DefaultsAreAPacedGenerationTwoBoardWithoutFaults) {
    Options options = parseOptions({});
    EXPECT_EQ(options.kind, BoardKind::LoadBoard2);
    EXPECT_TRUE(options.paced);
    EXPECT_TRUE(options.setup.empty());
    EXPECT_EQ(options.faults.noiseRate, 0);
    EXPECT_EQ(options.faults.muteAfter, std::nullopt);
    EXPECT_FALSE(options.trace || options.control || options.exitWithStdin || options.help);
}

TEST(SimulatorOptions, NamesTheChipsThereAreForOneThatIsNot) {
    EXPECT_EQ(complaint({"--chip", "kt9999"}),
              "--chip: \"kt9999\" is no chip; there are KT1100 KT1101 KT1102 KT2100 KT2102 KT3100 KT3101");
    EXPECT_EQ(complaint({"--chip", "KT3101"}), "");
}

TEST(SimulatorOptions, ShowsItsVersionAndALineForATerminalProgram) {
    EXPECT_TRUE(parseOptions({"--version"}).version);
    EXPECT_FALSE(parseOptions({}).version);
    EXPECT_THAT(helpText(), testing::HasSubstr("screen /tmp/board 19200"));
}

TEST(SimulatorOptions, KeepsAnEepromInAFile) {
    EXPECT_EQ(parseOptions({}).eepromFile, "");
    EXPECT_EQ(parseOptions({"--eeprom", "beacon.bin"}).eepromFile, "beacon.bin");
}

TEST(SimulatorOptions, PutsSomebodyOnTheAir) {
    EXPECT_EQ(parseOptions({}).air, Options::AirKind::none);
    EXPECT_EQ(parseOptions({"--air", "two"}).air, Options::AirKind::twoBoards);
    Options far = parseOptions({"--air", "echo"});
    EXPECT_EQ(far.air, Options::AirKind::farEnd);
    EXPECT_EQ(far.farEnd, FarEnd::Mode::echo);
    EXPECT_THAT(complaint({"--air", "loud"}), testing::StartsWith("--air: "));
}

TEST(SimulatorOptions, ReadsEveryOption) {
    Options options = parseOptions({"--kind",
                                    "lb1",
                                    "--chip",
                                    "kt3100",
                                    "--pace",
                                    "none",
                                    "--status",
                                    "5F,A0",
                                    "--irq",
                                    "low",
                                    "--current",
                                    "100,200",
                                    "--delay",
                                    "40",
                                    "--mute-after",
                                    "3",
                                    "--refuse",
                                    "F1,13,10",
                                    "--packets",
                                    "2.5",
                                    "--slow",
                                    "30",
                                    "--stall",
                                    "4",
                                    "--noise",
                                    "0.25",
                                    "--refusal-rate",
                                    "1",
                                    "--split",
                                    "5",
                                    "--seed",
                                    "9",
                                    "--link",
                                    "/tmp/x",
                                    "--trace",
                                    "--control",
                                    "--exit-with-stdin",
                                    "--help"});
    EXPECT_EQ(options.kind, BoardKind::LoadBoard1);
    EXPECT_FALSE(options.paced);
    EXPECT_THAT(options.setup,
                testing::ElementsAre("chip kt3100", "status 5F A0", "irq low", "current 100 200",
                                     "refuse F1,13,10", "slow 30", "stall 4"));
    EXPECT_EQ(options.packetsPerSecond, 2.5);
    EXPECT_EQ(options.faults.delay, std::chrono::milliseconds(40));
    EXPECT_EQ(options.faults.muteAfter, 3u);
    EXPECT_EQ(options.faults.noiseRate, 0.25);
    EXPECT_EQ(options.faults.refusalRate, 1);
    EXPECT_EQ(options.faults.splitEvery, 5u);
    EXPECT_EQ(options.faults.seed, 9u);
    EXPECT_EQ(options.link, "/tmp/x");
    EXPECT_TRUE(options.trace && options.control && options.exitWithStdin && options.help);
}

TEST(SimulatorOptions, NamesTheOptionThatIsWrong) {
    EXPECT_EQ(complaint({"--foo"}), "unknown option \"--foo\"");
    EXPECT_EQ(complaint({"--status"}), "--status needs XX[,YY]");
    EXPECT_EQ(complaint({"--kind", "lb3"}), "--kind: \"lb3\" is no kind of board");
    EXPECT_EQ(complaint({"--noise", "1.5"}), "--noise: \"1.5\" is no number in range");
    EXPECT_EQ(complaint({"--noise", "nan"}), "--noise: \"nan\" is no number in range");
    EXPECT_EQ(complaint({"--delay", "-1"}), "--delay: \"-1\" is no number in range");
    EXPECT_EQ(complaint({"--seed", "12x"}), "--seed: \"12x\" is no number in range");
    EXPECT_EQ(complaint({"--status", "5G"}), "--status: \"5G\" cannot be read");
    EXPECT_EQ(complaint({"--packets", "0"}), "--packets: \"0\" is no number in range");
    EXPECT_EQ(complaint({"--stall", "x"}), "--stall: \"x\" cannot be read");
    EXPECT_EQ(complaint({"--pace", "fast"}), "--pace: \"fast\" is no pace");
}

TEST(SimulatorOptions, HelpNamesEveryOptionAndStatement) {
    std::string help = helpText();
    for (const char* word :
         {"--kind KIND",        "--chip NAME", "--pace PACE",    "--status XX[,YY]", "--irq LEVEL",
          "--current HIGH,LOW", "--delay MS",  "--mute-after N", "--refuse LINE",    "--refusal-rate RATE",
          "--packets RATE",     "--slow MS",   "--stall N",      "image PATH",       "--noise RATE",
          "--split N",          "--seed N",    "--link PATH",    "--trace",          "--control",
          "--exit-with-stdin",  "--help",      "Examples:",      "status XX [YY]",   "quit"}) {
        EXPECT_NE(help.find(word), std::string::npos) << word;
    }
}

} // namespace zor::sim
