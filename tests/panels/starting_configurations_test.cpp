// SPDX-License-Identifier: MIT
// The configurations that come with the program are what its panels save. After a change of a file's form
// they are written anew by
//
//     ZOR_WRITE_CONFIGURATIONS=1 zor_tests --gtest_filter='StartingConfigurations.*'
#include "host/files.h"
#include "panels/all_panels.h"
#include "panels/panel_bench.h"

#include <cstdlib>
#include <filesystem>

namespace zor {

namespace {

using testing::PanelBench;

/// A setting as the user makes it: a text typed, an entry chosen, an option or a tick clicked.
struct Setting {
    const char* element;
    const char* text;
};

void make(Element& element, const char* text) {
    bool done = *text == '\0' ? element.click() : element.type(text) || element.chooseText(text);
    EXPECT_TRUE(done) << element.name() << " " << text;
}

template <class Panel>
void expectShipped(const char* name, std::initializer_list<Setting> settings) {
    PanelBench<Panel> bench;
    auto& panel = bench.open();
    for (const Setting& setting : settings) {
        make(bench.element(setting.element), setting.text);
    }
    std::filesystem::path file = std::filesystem::path(ZOR_CONFIGURATIONS_FOLDER) / name;
    if (std::getenv("ZOR_WRITE_CONFIGURATIONS") != nullptr) {
        writeFileWhole(file, panel.savedConfiguration());
    }
    EXPECT_EQ(readFile(file), panel.savedConfiguration()) << name;
    PanelBench<Panel> other;
    auto& fresh = other.open();
    fresh.takeConfiguration(readFile(file));
    for (std::size_t place = 0; place < panel.words().size(); ++place) {
        EXPECT_EQ(fresh.words()[place]->text(), panel.words()[place]->text()) << name;
    }
}

} // namespace

TEST(StartingConfigurations, OfTheKT1100AreWhatItsPanelSaves) {
    expectShipped<OpalV2>("KT1100_315MHz_OOK.tc", {{"Modulation", "OOK"}, {"pm7", ""}, {"pm6", ""}});
    expectShipped<OpalV2>("KT1100_433MHz_FSK.tc", {{"Band433", ""},
                                                   {"FreqCenter", "433.92"},
                                                   {"ModFreq", "90"},
                                                   {"OutputPower", "-3 dB"},
                                                   {"pm5", ""},
                                                   {"pm4", ""},
                                                   {"pm3", ""}});
}

TEST(StartingConfigurations, OfTheKT1101AreWhatItsPanelSaves) {
    expectShipped<JadeV1>(
        "KT1101_433MHz_FSK.tc1",
        {{"FreqCenter", "433.92"}, {"ModFreq", "90"}, {"DATARATEDIV", "35"}, {"CB_ebs", ""}});
    expectShipped<JadeV1>("KT1101_868MHz_FSK.tc1", {{"Band868", ""},
                                                    {"FreqCenter", "868.3"},
                                                    {"ModFreq", "120"},
                                                    {"DATARATEDIV", "8"},
                                                    {"CB_MaxDataRate", "38.4"},
                                                    {"CB_ebs", ""}});
}

TEST(StartingConfigurations, OfTheKT1102AreWhatItsPanelSaves) {
    expectShipped<KT1102>("KT1102_433MHz_FSK.tc2",
                          {{"Band433", ""}, {"FreqCenter", "433.92"}, {"ModFreq", "40"}, {"CB_EnFIFO", ""}});
    expectShipped<KT1102>("KT1102_868MHz_FSK.tc2", {{"ModFreq", "80"},
                                                    {"TB_DataRate", "35"},
                                                    {"C_PLLBW", "60 kHz"},
                                                    {"CB_EnFIFO", ""},
                                                    {"TB_FIFOITLevel", "8"}});
}

TEST(StartingConfigurations, OfTheReceiversAreWhatTheirPanelsSave) {
    expectShipped<AmberV1>("KT2100_868MHz.rc", {{"Band868", ""}, {"FreqCenter", "868.3"}});
    expectShipped<Coral>("KT2102_868MHz.rc2", {{"Band868", ""}, {"FreqCenter", "868.3"}});
}

TEST(StartingConfigurations, OfTheTransceiversAreWhatTheirPanelsSave) {
    expectShipped<BerylV3>("KT3100_868MHz.trc", {{"Band868", ""}, {"FreqCenter", "868.3"}});
    expectShipped<FRM_Topaz>("KT3101_868MHz.lrc", {{"Band868", ""}, {"FreqCenter", "868.3"}});
}

} // namespace zor
