// SPDX-License-Identifier: MIT
#include "utilities/guide.h"

#include "host/files.h"
#include "panels/common/chip_panel.h"
#include "shell/panel_table.h"
#include "shell/tool_table.h"
#include "support/markdown.h"
#include "virtual/virtual_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using zor::testing::VirtualBench;

constexpr const char* text =
    "# User guide\n\n## First steps\n\nSee [the terminal](guide/terminal.md) or [below](#the-tools).\n\n"
    "## The tools\n\n[Files](files.md), [a page that is not there](guide/missing.md).\n";
constexpr const char* terminalText =
    "# Terminal\n\nIts lines, see [files](../files.md#the-end).\n\n## Scripts\n";

struct GuideBench : VirtualBench {
    GuideBench() {
        platform.documentFolder = folder.path();
        writeFileWhole(folder.path() / "user-guide.md", text);
        std::filesystem::create_directory(folder.path() / "guide");
        writeFileWhole(folder.path() / "guide" / "terminal.md", terminalText);
        writeFileWhole(folder.path() / "files.md", "# Files\n\nOf lines.\n\n## The end\n");
        startAndSearch();
    }
    Guide& guide() { return dynamic_cast<Guide&>(*desk.find("frm_Guide")); }
};

} // namespace

TEST(Guide, ListsItsPagesWithTheirSections) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    EXPECT_THAT(guide.Contents.entries(), ElementsAre("User guide", "    First steps", "    The tools",
                                                      "Terminal", "    Scripts", "Files", "    The end"));
    EXPECT_EQ(guide.Contents.text(), "User guide");
    EXPECT_TRUE(guide.Contents.chooseText("    Scripts"));
    EXPECT_EQ(guide.Page.source(), terminalText);
    EXPECT_EQ(guide.Page.heading(), "Scripts");
    EXPECT_EQ(guide.Page.folder(), bench.folder.path() / "guide");
}

TEST(Guide, OpensAtItsBeginningAndAtTheWindowInFront) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    EXPECT_EQ(bench.guide().Page.source(), text);
    EXPECT_EQ(bench.guide().Page.heading(), "");
    bench.guide().userClose();
    EXPECT_TRUE(bench.main().menu.mnutoolsTerminal.click());
    EXPECT_EQ(bench.desk.front()->name(), "Terminal");
    EXPECT_TRUE(bench.main().menu.mnuHelpWindow.click());
    EXPECT_EQ(bench.guide().Page.source(), terminalText);
    EXPECT_EQ(bench.guide().Contents.text(), "Terminal");
    EXPECT_TRUE(bench.guide().inFront());
}

TEST(Guide, FollowsItsLinksAndGoesBack) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    EXPECT_FALSE(guide.Back.enabled());
    EXPECT_TRUE(guide.Page.chooseText("guide/terminal.md"));
    EXPECT_TRUE(guide.Page.chooseText("../files.md#the-end"));
    EXPECT_EQ(guide.Contents.text(), "    The end");
    EXPECT_EQ(guide.Page.heading(), "The end");
    EXPECT_TRUE(guide.Back.click());
    EXPECT_EQ(guide.Page.source(), terminalText);
    EXPECT_TRUE(guide.Back.click());
    EXPECT_EQ(guide.Page.source(), text);
    EXPECT_FALSE(guide.Back.enabled());
    guide.Page.chooseText("#the-tools");
    EXPECT_EQ(guide.Page.heading(), "The tools");
}

TEST(Guide, OpensNothingOutsideOfItsFolderAndNothingThatIsNotThere) {
    GuideBench bench;
    writeFileWhole(bench.folder.path().parent_path() / "secret.md", "# Secret\n");
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    for (const char* outside : {"../secret.md", "guide/../../secret.md", "/secret.md", "picture.png"}) {
        guide.Page.chooseText(outside);
        EXPECT_EQ(guide.Page.source(), text) << outside;
        EXPECT_THAT(bench.main().Notice.caption(), HasSubstr(outside));
    }
    guide.Page.chooseText("guide/missing.md");
    EXPECT_EQ(guide.Page.source(), text);
    EXPECT_THAT(bench.main().Notice.caption(), HasSubstr("guide/missing.md"));
    EXPECT_FALSE(guide.Back.enabled());
    std::filesystem::remove(bench.folder.path().parent_path() / "secret.md");
}

namespace {

/// What a view does, for a text of which the guide shows the page as it stands: the places where it was
/// found, one behind the other.
struct Seeker {
    explicit Seeker(Guide& ownGuide)
        : guide(ownGuide) {
        guide.Page.seeker = [this](const std::string& what, Document::Direction direction) {
            return seek(what, direction);
        };
        cursor = guide.Page.headingAsked.subscribe([this] { at = std::string::npos; });
    }
    bool seek(const std::string& what, Document::Direction direction) {
        const std::string& page = guide.Page.source();
        std::size_t place;
        if (direction == Document::Direction::Forward) {
            place = page.find(what, at == std::string::npos ? 0 : at + 1);
        } else {
            place = at == 0 ? std::string::npos : page.rfind(what, at == std::string::npos ? at : at - 1);
        }
        if (place == std::string::npos) {
            return false;
        }
        at = place;
        places.push_back(page.substr(2, page.find('\n') - 2));
        return true;
    }
    Guide& guide;
    Subscription cursor;
    std::size_t at = std::string::npos;
    std::vector<std::string> places;
};

} // namespace

TEST(Guide, SearchesItsPagesRoundTheEnd) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    Seeker seeker(guide);
    guide.Search.type("lines");
    EXPECT_EQ(guide.Contents.text(), "Terminal");
    guide.FindNext.click();
    EXPECT_EQ(guide.Contents.text(), "Files");
    guide.FindNext.click();
    guide.FindPrevious.click();
    guide.FindPrevious.click();
    EXPECT_THAT(seeker.places, ElementsAre("Terminal", "Files", "Terminal", "Files", "Terminal"));
    EXPECT_EQ(guide.Found.caption(), "");
    guide.Back.click();
    EXPECT_EQ(guide.Contents.text(), "Files");
}

TEST(Guide, FindsTheOnlyPlaceAgainAndSaysWhenThereIsNone) {
    GuideBench bench;
    bench.main().menu.mnuHelpSWguide.click();
    Guide& guide = bench.guide();
    Seeker seeker(guide);
    guide.Search.type("the terminal");
    guide.FindNext.click();
    guide.FindPrevious.click();
    EXPECT_THAT(seeker.places, ElementsAre("User guide", "User guide", "User guide"));
    guide.Search.type("nowhere");
    EXPECT_EQ(guide.Found.caption(), "Nowhere in the guide.");
    EXPECT_EQ(guide.Page.source(), text);
    guide.Search.type("");
    EXPECT_EQ(guide.Found.caption(), "");
}

TEST(Guide, EachWindowHasItsPageInTheGuideThatComesWithTheProgram) {
    const std::filesystem::path documents = ZOR_DOCUMENTS;
    std::vector<std::string> pages = linkedDocuments(readFile(documents / "user-guide.md"));
    for (const ToolRow& row : toolRows()) {
        bool isHelp = row.tool == Tool::frm_Splash || row.tool == Tool::frm_Guide;
        if (!isHelp) {
            EXPECT_THAT(pages, Contains(guidePage(row.form))) << row.form;
        }
    }
    for (const PanelRow& row : panelRows()) {
        EXPECT_THAT(pages, Contains(guidePage(row.name))) << row.name;
    }
    for (const std::string& page : pages) {
        EXPECT_THAT(headingsOf(readFile(documents / page), 1), SizeIs(1)) << page;
    }
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
