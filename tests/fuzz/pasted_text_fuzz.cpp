// SPDX-License-Identifier: MIT
#include "compare/devices.h"
#include "compare/frm_compare.h"
#include "compare/frm_set_from.h"
#include "elements/history.h"
#include "host/files.h"

#include <cstdlib>
#include <memory>

namespace {

using namespace zor;

/// A panel with the windows that are given texts, for as long as the target runs.
class PasteBench : public testing::DeviceBench {
  public:
    explicit PasteBench(const testing::Device& device)
        : DeviceBench(device) {
        for (Tool tool : {Tool::frm_SetFrom, Tool::frm_Compare}) {
            loop.perform([this, tool] { shared().tools.open(tool); });
        }
        beginAnew();
    }

    /// Whatever was pasted before has no part in what comes.
    void beginAnew() {
        panel().history()->goTo(0);
        panel().history()->forget();
        dialogs.boxes.clear();
        dialogs.fileDialogs.clear();
        before = panel().savedConfiguration();
    }

    void paste(std::string_view text) {
        auto& window = dynamic_cast<frm_SetFrom&>(*shared().tools.find(Tool::frm_SetFrom));
        window.CB_Word.choosePosition(static_cast<int>(text.size() % panel().words().size()));
        window.TB_Word.type(text);
        press(window, window.PB_SetWord);
        window.TB_HeaderText.replace(text);
        press(window, window.PB_SetHeader);
        if (!dialogs.boxes.empty()) {
            std::abort();
        }
    }

    /// The same text from a file, taken for each kind that a side can show.
    void compare(std::string_view text) {
        auto& window = dynamic_cast<frm_Compare&>(*shared().tools.find(Tool::frm_Compare));
        std::filesystem::path file = folder.path() / "pasted";
        writeFileWhole(file, text);
        for (int kind : {3, 2}) {
            dialogs.files.assign(1, file.string());
            window.CB_Right.choosePosition(kind);
            if (window.GR_Differences.rowCount() > 0) {
                window.GR_Differences.pickRow(text.size() % window.GR_Differences.rowCount());
            }
            window.PB_TakeRight.click();
            window.PB_TakeAllRight.click();
            loop.perform([] {});
            if (window.L_Count.caption().empty() || !dialogs.files.empty()) {
                std::abort();
            }
        }
        window.CB_Right.choosePosition(1);
        loop.perform([] {});
    }

    void expectWayBack() {
        panel().history()->goTo(0);
        if (panel().savedConfiguration() != before || !takeSent().empty()) {
            std::abort();
        }
    }

  private:
    /// Either the panel has become what was asked for, or it is as it was.
    void press(const frm_SetFrom& window, Button& button) {
        std::string then = panel().savedConfiguration();
        button.click();
        const std::string& result = window.L_Result.caption();
        if (result.empty() ||
            (result.starts_with("Nothing was changed") && panel().savedConfiguration() != then)) {
            std::abort();
        }
    }

    std::string before;
};

} // namespace

/// Any text, pasted into the window that sets a panel from words and headers, and read from a file that is
/// compared with the panel: nothing is sent, no window is lost over it, and going back undoes it all.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One with a regional variant, one with revisions, one with a band that has no base of its own.
    static const std::vector<std::unique_ptr<PasteBench>> benches = [] {
        std::vector<std::unique_ptr<PasteBench>> all;
        for (std::size_t row : {0U, 4U, 5U}) {
            all.push_back(std::make_unique<PasteBench>(testing::allDevices()[row]));
        }
        return all;
    }();
    std::string_view text(reinterpret_cast<const char*>(data), size);
    PasteBench& bench = *benches[size % benches.size()];
    bench.beginAnew();
    bench.paste(text);
    bench.compare(text);
    bench.expectWayBack();
    return 0;
}
