// SPDX-License-Identifier: MIT
#include "virtual/virtual_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

namespace {

using ::testing::ElementsAre;
using zor::testing::VirtualBench;

} // namespace

TEST(Help, BrowsesTheFoldersBesideThePrograms) {
    VirtualBench bench;
    bench.start();
    bench.main().menu.mnuHelpBrowseDoc.click();
    bench.main().menu.mnuHelpBrowseEx.click();
    ASSERT_EQ(bench.dialogs.fileDialogs.size(), 2u);
    EXPECT_EQ(bench.dialogs.fileDialogs[0].folder, bench.platform.programFolder / ".." / "Documentation");
    EXPECT_EQ(bench.dialogs.fileDialogs[0].defaultExtension, "pdf");
    EXPECT_EQ(bench.dialogs.fileDialogs[0].mode, FileRequest::Mode::Load);
    EXPECT_EQ(bench.dialogs.fileDialogs[1].folder, bench.platform.programFolder / ".." / "Examples");
    // Both were cancelled.
    EXPECT_TRUE(bench.surroundings.opened.empty());
}

TEST(Help, OpensTheChosenDocument) {
    VirtualBench bench;
    bench.start();
    bench.dialogs.files = {"/bench/guide.pdf"};
    bench.main().menu.mnuHelpBrowseDoc.click();
    EXPECT_THAT(bench.surroundings.opened, ElementsAre("/bench/guide.pdf"));
    EXPECT_EQ(bench.main().Notice.caption(), "");
}

TEST(Help, SaysQuietlyThatNoProgramOpensADocument) {
    VirtualBench bench;
    bench.start();
    bench.surroundings.opensDocuments = false;
    bench.dialogs.files = {"/bench/guide.pdf"};
    bench.main().menu.mnuHelpBrowseDoc.click();
    EXPECT_EQ(bench.main().Notice.caption(), "There is no program to open /bench/guide.pdf with.");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Help, StartsTheSystemsInformationToolWhereThereIsOne) {
    VirtualBench bench;
    bench.surroundings.hasSystemInformation = true;
    bench.start();
    bench.main().menu.mnuHelpAbout.click();
    EXPECT_TRUE(bench.at("frmAbout", "cmdSysInfo").click());
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

} // namespace zor
