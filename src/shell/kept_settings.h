// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "link/bench.h"
#include "platform/event_loop.h"

#include <filesystem>
#include <string>

namespace zor {

class PanelRegistry;

/// What a run keeps of the open panel, so that it is not lost with a run that ends badly.
///
/// While a panel is open with settings in it that it did not open with, they are written each minute into a
/// file of this run's own, ZOR-kept-<process>.ini beside the other settings files. A proper end takes the
/// file away. One that lies there at a start, and whose process runs no more, is offered once in a line at
/// the foot of the main window.
class KeptSettings {
  public:
    KeptSettings(Form& main, Bench& ownBench, PanelRegistry& ownRegistry);
    KeptSettings(const KeptSettings&) = delete;
    KeptSettings& operator=(const KeptSettings&) = delete;

    static constexpr std::chrono::milliseconds interval{60000};

    /// The start: looks for what a run left that ended badly.
    void look();
    /// A proper end.
    void end();

    /// The offer, and its two answers. They are there as long as neither was given.
    Label KeptOffer;
    Button KeptBring;
    Button KeptDismiss;

  private:
    struct Offered {
        std::filesystem::path file;
        std::string panel;
        bool bijaku = false;
        std::string memory;
    };

    [[nodiscard]] std::filesystem::path ownFile() const;
    [[nodiscard]] static bool read(const std::filesystem::path& file, Offered& offered);
    void begin();
    void keep();
    void forgetOwn();
    void show(bool shown);
    void dismiss();
    void bring();

    Bench& bench;
    PanelRegistry& registry;
    Timer minute;
    Offered offered;
    /// What stands in the own file; empty if there is none.
    std::string written;
    Subscription acting;
};

} // namespace zor
