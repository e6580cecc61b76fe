// SPDX-License-Identifier: MIT
#include "utilities/guide.h"

#include "host/files.h"
#include "panels/common/chip_panel.h"
#include "shell/tool_table.h"
#include "virtual/virtual_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using zor::testing::VirtualBench;

constexpr const char* text =
    "# User guide\n\n## First steps\n\nSee [files](files.md#the-end) or [below](#the-tools).\n"
    "```\n## no heading\n```\n## What the parts of a panel are\n\n## The tools\n";

struct GuideBench : VirtualBench {
    GuideBench() {
        platform.documentFolder = folder.path();
        writeFileWhole(folder.path() / "user-guide.md", text);
        writeFileWhole(folder.path() / "files.md", "# Files\n\n## The end\n");
        startAndSearch();
    }
    Guide& guide() { return dynamic_cast<Guide&>(*desk.find("frm_Guide")); }
};

} // namespace

TEST(Guide, FindsHeadingsOutsideOfCode) {
    EXPECT_THAT(headingsOf(text, 2),
                ElementsAre("First steps", "What the parts of a panel are", "The tools"));
    EXPECT_THAT(headingsOf("## a\r\n## b", 2), ElementsAre("a", "b"));
    EXPECT_EQ(anchorOf("The EEPROM of a board, `ZOR.db`"), "the-eeprom-of-a-board-zordb");
}

TEST(Guide, OpensAtItsBeginningAndAtTheWindowInFront) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    EXPECT_EQ(bench.guide().Page.heading(), "");
    EXPECT_THAT(bench.guide().Contents.entries(), Contains("The tools"));
    bench.guide().userClose();
    EXPECT_TRUE(bench.main().menu.mnutoolsTerminal.click());
    EXPECT_EQ(bench.desk.front()->name(), "Terminal");
    EXPECT_TRUE(bench.main().menu.mnuHelpWindow.click());
    EXPECT_EQ(bench.guide().Page.heading(), "The tools");
    EXPECT_EQ(bench.guide().Contents.text(), "The tools");
    EXPECT_TRUE(bench.guide().inFront());
}

TEST(Guide, FollowsItsLinksAndGoesBack) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    EXPECT_FALSE(guide.Back.enabled());
    EXPECT_TRUE(guide.Page.chooseText("files.md#the-end"));
    EXPECT_THAT(guide.Contents.entries(), ElementsAre("The end"));
    EXPECT_EQ(guide.Page.heading(), "The end");
    EXPECT_TRUE(guide.Back.click());
    EXPECT_EQ(guide.Page.source(), text);
    EXPECT_FALSE(guide.Back.enabled());
    guide.Page.chooseText("#the-tools");
    EXPECT_EQ(guide.Page.heading(), "The tools");
    // Nothing leads out of the folder, and a document that is not there changes nothing.
    guide.Page.chooseText("../secret.md");
    EXPECT_EQ(guide.Page.source(), text);
    guide.Page.chooseText("missing.md");
    EXPECT_EQ(guide.Page.source(), text);
    EXPECT_THAT(bench.main().Notice.caption(), HasSubstr("missing.md"));
}

TEST(Guide, SeeksInItsViewAndSaysWhenThereIsNothing) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    std::vector<std::string> sought;
    guide.Page.seeker = [&](const std::string& what, Document::Direction direction) {
        sought.push_back(what + (direction == Document::Direction::Forward ? ">" : "<"));
        return what == "tools";
    };
    guide.Search.type("tools");
    guide.FindPrevious.click();
    EXPECT_EQ(guide.Found.caption(), "");
    guide.Search.type("nowhere");
    EXPECT_EQ(guide.Found.caption(), "Not in this document.");
    EXPECT_THAT(sought, ElementsAre("tools>", "tools<", "nowhere>"));
}

TEST(Guide, EachOfItsSectionsStandsInTheGuideThatComesWithTheProgram) {
    std::vector<std::string> headings = headingsOf(readFile(ZOR_USER_GUIDE), 2);
    for (const ToolRow& row : toolRows()) {
        std::string section = guideSection(row.form);
        if (!section.empty()) {
            EXPECT_THAT(headings, Contains(section)) << row.form;
        }
    }
    EXPECT_THAT(headings, Contains(guideSection("OpalV2")));
}

TEST(DataSheets, AreOpenedFromTheDocumentationFolder) {
    VirtualBench bench;
    bench.start();
    std::filesystem::path documents = bench.platform.programFolder / ".." / "Documentation";
    std::filesystem::create_directories(documents);
    std::string sheet = (documents.lexically_normal() / "KT1100 rev 2.PDF").string();
    writeFileWhole(sheet, "%PDF");
    bench.main().menu.mnuHelp1100DS.click();
    EXPECT_THAT(bench.surroundings.opened, ElementsAre(sheet));
}

TEST(Files, GivenAtTheStartAreOpenedOnceThePanelsCanBeUsed) {
    VirtualBench bench;
    std::string file = (bench.folder.path() / "lab.trc").string();
    bench.start();
    bench.main().openFile(file);
    EXPECT_EQ(bench.shared().openPanel(), nullptr);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    bench.run(std::chrono::milliseconds(3000));
    ASSERT_NE(bench.shared().openPanel(), nullptr);
    EXPECT_EQ(bench.shared().openPanel()->name(), "BerylV3");
    ASSERT_FALSE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.dialogs.boxes.front().title, "File open error");
    bench.dialogs.boxes.clear();
    bench.main().openFile("picture.png");
    ASSERT_FALSE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.dialogs.boxes.front().text, "File type not supported! Please try again!");
}

} // namespace zor
