// SPDX-License-Identifier: MIT
#include "utilities/mac_sniffer.h"

#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using zor::testing::VirtualBench;

struct SnifferBench : VirtualBench {
    SnifferBench() {
        ports.place(1, sim::BoardKind::Monitor);
        startAndSearch();
        main().menu.mnutoolsSniffer.click();
    }
    MacSniffer& sniffer() { return dynamic_cast<MacSniffer&>(*desk.find("frm_VireoMacSniffer")); }
};

} // namespace

TEST(MacSniffer, HoursOfAFullLineKeepTheNewestAndSaySo) {
    SnifferBench bench;
    std::string packet = "RX 16: 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F\r\n";
    std::size_t come = 0;
    // Ten hours at 19200 baud.
    while (come < std::size_t{10} * 3600 * 1920) {
        bench.sniffer().Incoming.append(packet);
        come += packet.size();
        ASSERT_LE(bench.sniffer().Incoming.contents().size(), KeptText::mostKept);
    }
    EXPECT_EQ(bench.sniffer().Incoming.dropped() + bench.sniffer().Incoming.contents().size(), come);
    EXPECT_TRUE(bench.sniffer().Incoming.contents().starts_with("RX 16: "));
    EXPECT_TRUE(bench.sniffer().Kept.caption().ends_with(" are gone; the newest 16 MiB are kept."));
    bench.sniffer().Clear.click();
    EXPECT_EQ(bench.sniffer().Kept.caption(), "");
    EXPECT_EQ(bench.sniffer().Incoming.contents().capacity(), std::string().capacity());
}

} // namespace zor
