// SPDX-License-Identifier: MIT
#include "link/plot_file.h"

#include "elements/plot.h"
#include "host/files.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

namespace zor::testing {

namespace {

class PlotFile : public ::testing::Test {
  protected:
    PlotFile() { plot.setPoints({{1, 2}, {2, std::nullopt}}); }

    void save(const std::string& name) {
        bench.dialogs.files.emplace_back((bench.platform.programFolder / name).string());
        savePlot(bench.shared(), plot, "Save Plot", "plot.png");
    }
    [[nodiscard]] std::string content(const std::string& name) {
        return readFile(bench.platform.programFolder / name);
    }

    VirtualBench bench;
    Form form{bench.desk, "form", "Form"};
    Plot plot{form, "plot", {.title = "Errors", .x = {"Read"}, .y = {"Errors"}}};
};

TEST_F(PlotFile, HoldsTheValuesWhereTheNameSaysSo) {
    save("errors.CSV");
    EXPECT_EQ(content("errors.CSV"), "Read,Errors\r\n1,2\r\n2,\r\n");
    EXPECT_EQ(bench.dialogs.fileDialogs.front().title, "Save Plot");
    EXPECT_EQ(bench.dialogs.fileDialogs.front().proposal, "plot.png");
}

TEST_F(PlotFile, HoldsThePictureElse) {
    plot.picture = [] { return std::string("\x89PNG"); };
    save("errors.png");
    EXPECT_EQ(content("errors.png"), "\x89PNG");
    save("errors");
    EXPECT_EQ(content("errors"), "\x89PNG");
}

TEST_F(PlotFile, IsNotWrittenWithoutAPicture) {
    save("errors.png");
    EXPECT_FALSE(std::filesystem::exists(bench.platform.programFolder / "errors.png"));
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes.front().title, "File save error");
}

TEST_F(PlotFile, IsNotWrittenWhenTheDialogIsCancelled) {
    bench.dialogs.files.emplace_back(std::nullopt);
    savePlot(bench.shared(), plot, "Save Plot", "plot.png");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_FALSE(std::filesystem::exists(bench.platform.programFolder / "*.png"));
}

} // namespace

} // namespace zor::testing
