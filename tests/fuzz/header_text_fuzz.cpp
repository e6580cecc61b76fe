// SPDX-License-Identifier: MIT
#include "compare/devices.h"
#include "compare/panel_setter.h"
#include "support/numbers.h"

#include <cstdlib>

/// Whatever text is pasted: either the panel has exactly the words that it names, or it is as it was before.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zor;
    static testing::DeviceBench bench(testing::allDevices().back());
    ChipPanel& panel = bench.panel();
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string before = panel.savedConfiguration();
    WantedSettings wanted;
    try {
        wanted = wantedByHeader(panel, text).settings;
    } catch (const HeaderFault&) {
        // Told to whoever pasted it; what follows takes the text for a word.
        if (std::optional<WrittenWord> word = readWrittenWord(text)) {
            wanted.words.emplace_back("Freqw", word->value);
        }
    }
    bool done = setPanel(bench.shared(), panel, wanted).empty();
    if (!done && panel.savedConfiguration() != before) {
        std::abort();
    }
    for (const auto& [name, value] : wanted.words) {
        if (done && panel.find(name)->text() != hexText(value)) {
            std::abort();
        }
    }
    return 0;
}
