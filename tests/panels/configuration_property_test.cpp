// SPDX-License-Identifier: MIT
// What holds for the configuration files of every panel.
#include "panels/all_panels.h"
#include "panels/panel_bench.h"
#include "panels/random_user.h"
#include "panels/unsaved_settings.h"

#include <map>

namespace zor {

namespace {

using testing::PanelBench;

std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = bytes.find("\r\n"); end != std::string::npos; end = bytes.find("\r\n", begin)) {
        lines.push_back(bytes.substr(begin, end - begin));
        begin = end + 2;
    }
    return lines;
}

std::string bytesOf(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) {
        bytes += line + "\r\n";
    }
    return bytes;
}

int errorOf(ChipPanel& panel, const std::string& bytes) {
    try {
        panel.takeConfiguration(bytes);
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

std::map<std::string, std::string> wordsOf(const ChipPanel& panel) {
    std::map<std::string, std::string> texts;
    for (const ControlWord* word : panel.words()) {
        texts[word->name()] = word->text();
    }
    return texts;
}

/// The KT2102's lowest band leaves the base of the band before, which no file tells.
void leaveBandWithoutBase(ChipPanel& panel) {
    if (panel.name() == "Coral" && panel.band(Band::Band315)->chosen()) {
        panel.band(Band::Band433)->choose();
    }
}

} // namespace

template <class Panel>
class ConfigurationFiles : public ::testing::Test {
  protected:
    PanelBench<Panel> bench;
};

TYPED_TEST_SUITE(ConfigurationFiles, testing::AllPanels, testing::PanelNames);

TYPED_TEST(ConfigurationFiles, BringBackWhatWasSavedOnAPanelJustOpened) {
    auto& panel = this->bench.open();
    for (unsigned seed = 1; seed <= 40; ++seed) {
        testing::RandomUser(seed).set(panel);
        leaveBandWithoutBase(panel);
        std::string saved = panel.savedConfiguration();
        PanelBench<TypeParam> other;
        // The file of another revision is a case of its own.
        other.shared().preferences.Pref_OpalRevision = panel.Revision.text();
        other.shared().preferences.Pref_AmberRevision = panel.Revision.text();
        auto& fresh = other.open();
        testing::UnsavedSettings(panel).putTo(fresh);
        fresh.takeConfiguration(saved);
        EXPECT_EQ(fresh.savedConfiguration(), saved) << "seed " << seed;
        EXPECT_EQ(wordsOf(fresh), wordsOf(panel)) << "seed " << seed;
    }
}

TYPED_TEST(ConfigurationFiles, BringBackWhatWasSavedOverOtherSettings) {
    auto& panel = this->bench.open();
    testing::RandomUser user(7);
    for (int round = 0; round < 40; ++round) {
        user.set(panel);
        leaveBandWithoutBase(panel);
        std::string saved = panel.savedConfiguration();
        auto words = wordsOf(panel);
        std::string revision = panel.Revision.text();
        testing::UnsavedSettings unsaved(panel);
        user.set(panel);
        panel.Revision.selectText(revision);
        unsaved.putTo(panel);
        panel.takeConfiguration(saved);
        EXPECT_EQ(panel.savedConfiguration(), saved) << "round " << round;
        EXPECT_EQ(wordsOf(panel), words) << "round " << round;
    }
}

TYPED_TEST(ConfigurationFiles, CutShortAtAnyLineRaiseTheReadPastTheEnd) {
    auto& panel = this->bench.open();
    std::vector<std::string> lines = linesOf(panel.savedConfiguration());
    for (std::size_t kept = 0; kept < lines.size(); ++kept) {
        std::vector<std::string> begin(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept));
        EXPECT_EQ(errorOf(panel, bytesOf(begin)), 62) << kept << " lines";
    }
    EXPECT_EQ(errorOf(panel, bytesOf(lines)), 0);
}

TYPED_TEST(ConfigurationFiles, RefuseALineOfAnotherForm) {
    auto& panel = this->bench.open();
    std::vector<std::string> lines = linesOf(panel.savedConfiguration());
    for (std::size_t wrong = 0; wrong < lines.size(); ++wrong) {
        for (const char* other : {"\"text\"", "#TRUE#", "1", "", "#true#", "\"open"}) {
            if (*other == lines[wrong].front() && std::string(other) != "\"open") {
                continue;
            }
            bool number = std::isdigit(static_cast<unsigned char>(lines[wrong].front())) != 0;
            if (number && std::string(other) == "1") {
                continue;
            }
            std::vector<std::string> bad = lines;
            bad[wrong] = other;
            if (std::string(other) == "#true#" && lines[wrong].front() == '#') {
                continue;
            }
            EXPECT_EQ(errorOf(panel, bytesOf(bad)), wrong == 0 ? 1226 : 13)
                << "line " << wrong + 1 << " " << lines[wrong] << " as " << other;
        }
    }
}

TYPED_TEST(ConfigurationFiles, RefuseANumberThatTheElementCannotHave) {
    auto& panel = this->bench.open();
    std::vector<std::string> lines = linesOf(panel.savedConfiguration());
    int numbers = 0;
    // The receivers' files begin with a number of the main window's that has no limits.
    std::size_t first = panel.traits().file.extension[0] == 'r' ? 2 : 1;
    for (std::size_t wrong = first; wrong < lines.size(); ++wrong) {
        if (std::isdigit(static_cast<unsigned char>(lines[wrong].front())) != 0) {
            ++numbers;
            for (const char* value : {"100000", "-2"}) {
                std::vector<std::string> bad = lines;
                bad[wrong] = value;
                EXPECT_EQ(errorOf(panel, bytesOf(bad)), 380) << "line " << wrong + 1;
            }
        }
    }
    EXPECT_GE(numbers, 10);
}

TYPED_TEST(ConfigurationFiles, CompareTheBannerToTheByte) {
    auto& panel = this->bench.open();
    std::vector<std::string> lines = linesOf(panel.savedConfiguration());
    std::string banner = lines[0].substr(1, lines[0].size() - 2);
    for (const std::string& other :
         {banner + " ", " " + banner, banner.substr(1), banner + "1", std::string()}) {
        lines[0] = "\"" + other + "\"";
        EXPECT_EQ(errorOf(panel, bytesOf(lines)), 1226) << other;
    }
    std::string whole = "\"" + banner + "\"";
    for (const std::string& other : {" " + whole, whole + " ", whole + ",1", whole + "x", banner}) {
        lines[0] = other;
        EXPECT_EQ(errorOf(panel, bytesOf(lines)), 1226) << other;
    }
    lines[0] = whole;
    EXPECT_EQ(errorOf(panel, bytesOf(lines)), 0);
}

} // namespace zor
