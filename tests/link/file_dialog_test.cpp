// SPDX-License-Identifier: MIT
#include "link/file_dialog.h"

#include "host/files.h"
#include "support/error.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

namespace {

class FileDialog : public ::testing::Test {
  protected:
    [[nodiscard]] static FileRequest request(FileRequest::Mode mode) {
        return {.mode = mode,
                .title = "Notes",
                .folder = "/where/it/begins",
                .startName = "*.txt",
                .filter = "Text files (*.txt)|*.txt",
                .defaultExtension = "txt"};
    }
    /// The file's whole name, which the next dialog gives.
    std::string answer(const std::string& name) {
        std::string whole = (bench.platform.programFolder / name).string();
        bench.dialogs.files.emplace_back(whole);
        return whole;
    }
    std::string save(const std::string& firstName = "notes.txt") {
        return saveByDialog(bench.shared(), request(FileRequest::Mode::Save), firstName,
                            [](const std::string&) { return std::string("text"); });
    }
    bool load(bool good = true) {
        return loadChosen(bench.shared(), request(FileRequest::Mode::Load), "notes.txt",
                          [good](const FileChoice&) { return good; });
    }
    [[nodiscard]] const FileRequest& asked() { return bench.dialogs.fileDialogs.back(); }
    [[nodiscard]] std::string foot() { return bench.main().Notice.caption(); }

    VirtualBench bench;
};

TEST_F(FileDialog, ProposesTheFirstNameAndThenTheLastOneInItsFolder) {
    std::string name = answer("mine.txt");
    EXPECT_EQ(save(), name);
    EXPECT_EQ(asked().proposal, "notes.txt");
    EXPECT_EQ(asked().startName, "*.txt");
    EXPECT_EQ(asked().folder, "/where/it/begins");
    EXPECT_EQ(readFile(name), "text");
    save();
    EXPECT_EQ(asked().proposal, "mine.txt");
    EXPECT_EQ(asked().folder, bench.platform.programFolder);
    // Another kind has a name of its own.
    save("others.txt");
    EXPECT_EQ(asked().proposal, "others.txt");
}

TEST_F(FileDialog, ALoadProposesNothingBeforeTheFirstFile) {
    answer("mine.txt");
    EXPECT_TRUE(load());
    EXPECT_EQ(asked().proposal, "");
    load();
    EXPECT_EQ(asked().proposal, "mine.txt");
    save();
    EXPECT_EQ(asked().proposal, "mine.txt");
}

TEST_F(FileDialog, TheFootNamesWhatWasSavedOrLoaded) {
    std::string name = answer("mine.txt");
    save();
    EXPECT_EQ(foot(), "Saved " + name);
    answer("mine.txt");
    load();
    EXPECT_EQ(foot(), "Loaded " + name);
}

TEST_F(FileDialog, NothingIsSaidNorRememberedOfWhatWasCancelled) {
    std::string before = foot();
    bench.dialogs.files.emplace_back(std::nullopt);
    EXPECT_EQ(save(), "");
    answer("*.txt");
    EXPECT_EQ(save(), "");
    bench.dialogs.files.emplace_back(std::nullopt);
    EXPECT_FALSE(load());
    EXPECT_EQ(foot(), before);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_TRUE(bench.shared().usedFiles.empty());
}

TEST_F(FileDialog, NothingIsSaidNorRememberedOfWhatFailed) {
    std::string before = foot();
    answer("no/such/folder/mine.txt");
    EXPECT_EQ(save(), "");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes.front().title, "File save error");
    answer("mine.txt");
    EXPECT_FALSE(load(false));
    answer("mine.txt");
    EXPECT_THROW(loadChosen(bench.shared(), request(FileRequest::Mode::Load), "notes.txt",
                            [](const FileChoice&) -> bool { throw ToolError(unsupported); }),
                 ToolError);
    EXPECT_EQ(foot(), before);
    EXPECT_TRUE(bench.shared().usedFiles.empty());
}

TEST_F(FileDialog, ANameThatIsRefusedIsAskedForAgain) {
    answer("first.txt");
    std::string second = answer("second.txt");
    std::string saved = saveChosen(
        bench.shared(), request(FileRequest::Mode::Save), "notes.txt",
        [](const std::string&) { return std::string("text"); },
        [](const FileChoice& choice) -> std::optional<std::string> {
            return choice.name.ends_with("second.txt") ? std::optional(choice.name) : std::nullopt;
        });
    EXPECT_EQ(saved, second);
    EXPECT_FALSE(std::filesystem::exists(bench.platform.programFolder / "first.txt"));
}

} // namespace

} // namespace zor::testing
