// SPDX-License-Identifier: MIT
#include "link/port_search.h"

#include "virtual/virtual_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

namespace {

using ::testing::ElementsAre;
using zor::testing::VirtualBench;

constexpr std::string_view prompt = "\n\rOK\n\r>";

/// An answer of `length` characters that ends in the prompt, with texts at positions counted from 1.
struct Placed {
    std::size_t position;
    std::string_view text;
};
std::string answer(std::size_t length, std::initializer_list<Placed> texts) {
    std::string filled(length, '.');
    for (const Placed& placed : texts) {
        filled.replace(placed.position - 1, placed.text.size(), placed.text);
    }
    return filled.replace(length - prompt.size(), prompt.size(), prompt);
}

int revision(const std::string& received) {
    const Firmware* firmware = recogniseFirmware(received);
    return firmware == nullptr ? 0 : firmware->loadBoardRev;
}

constexpr std::string_view name = "Ortolan Radio Bench System";

} // namespace

TEST(Firmware, IsToldByItsNameAndTheBeginningOfItsVersion) {
    EXPECT_EQ(revision(answer(94, {{3, name}, {34, "1."}})), 1);
    EXPECT_EQ(revision(answer(94, {{3, name}, {34, "2."}})), 2);
    EXPECT_EQ(revision(answer(94, {{5, "Vireo Demo Monitor"}, {27, "1."}})), 50);
    EXPECT_EQ(revision(answer(94, {{5, "LoadBoard Loader"}})), 40);
}

TEST(Firmware, OfAnotherVersionIsNone) {
    EXPECT_EQ(revision(answer(94, {{3, name}, {34, "3."}})), 0);
    EXPECT_EQ(revision(answer(94, {{3, name}, {34, "1,"}})), 0);
    EXPECT_EQ(revision(answer(94, {{3, name}, {33, "1."}})), 0);
    EXPECT_EQ(revision(answer(94, {{5, "Vireo Demo Monitor"}, {27, "2."}})), 0);
}

TEST(Firmware, AtAnotherPlaceIsNone) {
    EXPECT_EQ(revision(answer(94, {{2, name}, {34, "1."}})), 0);
    EXPECT_EQ(revision(answer(94, {{4, name}, {34, "1."}})), 0);
    EXPECT_EQ(revision(answer(94, {{4, "LoadBoard Loader"}})), 0);
    EXPECT_EQ(revision(answer(94, {{6, "Vireo Demo Monitor"}, {27, "1."}})), 0);
}

TEST(Firmware, OnlyTheLastNinetyFourCharactersCount) {
    EXPECT_EQ(revision(answer(100, {{9, name}, {40, "2."}})), 2);
    EXPECT_EQ(revision(answer(100, {{3, name}, {34, "2."}})), 0);
}

TEST(Firmware, OfAShortAnswerIsJudgedFromItsBeginning) {
    EXPECT_EQ(revision(answer(60, {{3, name}, {34, "1."}})), 1);
    EXPECT_EQ(revision(std::string(prompt)), 0);
    EXPECT_EQ(revision(""), 0);
}

TEST(Firmware, OfAnEntryIsToldByTheEntrysBeginning) {
    auto kind = [](std::string_view entry) {
        const Firmware* firmware = firmwareOfEntry(entry);
        return firmware == nullptr ? 0 : firmware->loadBoardRev;
    };
    EXPECT_EQ(kind("LoadBoard 1.x: Com3"), 1);
    EXPECT_EQ(kind("LoadBoard 2.x: Com12"), 2);
    EXPECT_EQ(kind("LoadB. Loader: Com1"), 40);
    EXPECT_EQ(kind("VireoMac Monitor: Com16"), 50);
    EXPECT_EQ(kind("LoadBoard 3.x: Com3"), 0);
    EXPECT_EQ(kind(""), 0);
}

TEST(PortSearch, TellsOfDevicesThatTheUserMayNotOpen) {
    VirtualBench bench;
    bench.ports.seat(2).denied = true;
    bench.ports.seat(5).denied = true;
    bench.startAndSearch();
    EXPECT_EQ(
        bench.main().Notice.caption(),
        "No permission to open /dev/ttyS2, /dev/ttyS5: join the group dialout, or install the udev rule "
        "that comes with the program.");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    bench.ports.seat(2).denied = false;
    bench.ports.seat(5).denied = false;
    bench.main().linkBar.Connect.click();
    EXPECT_EQ(bench.main().Notice.caption(), "");
}

TEST(PortSearch, EntriesCarryTheirDevicesPathAsATip) {
    VirtualBench bench;
    bench.ports.place(2, sim::BoardKind::LoadBoard1);
    bench.ports.place(4, sim::BoardKind::LoadBoard2);
    bench.startAndSearch();
    EXPECT_THAT(bench.main().linkBar.LoadboardList.entryTips(), ElementsAre("/dev/ttyS2", "/dev/ttyS4"));
    bench.main().linkBar.Disconnect.click();
    EXPECT_THAT(bench.main().linkBar.LoadboardList.entryTips(), ElementsAre());
}

TEST(PortSearch, LeavesEveryPortClosed) {
    VirtualBench bench;
    bench.ports.place(1, sim::BoardKind::LoadBoard1);
    bench.ports.place(2, sim::BoardKind::Silent);
    bench.ports.place(3, sim::BoardKind::LoadBoard2);
    bench.startAndSearch();
    for (const auto& [number, seat] : bench.ports.seats()) {
        EXPECT_FALSE(seat->heldByPort()) << number;
    }
}

TEST(PortSearch, WhatAPortOfTheSearchSaysDoesNotReachTheWorkingPortsTails) {
    VirtualBench bench;
    bench.ports.place(1, sim::BoardKind::LoadBoard1);
    bench.ports.place(2, sim::BoardKind::LoadBoard1);
    bench.startAndSearch();
    EXPECT_EQ(bench.shared().link.Last7, "");
    EXPECT_EQ(bench.shared().link.Last100, "");
    EXPECT_EQ(bench.channel().Last7, "");
    EXPECT_EQ(bench.channel().Last100, "");
    EXPECT_EQ(bench.main().linkBar.CommStatus.text(), "Finished");
}

} // namespace zor
