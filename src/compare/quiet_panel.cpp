// SPDX-License-Identifier: MIT
#include "compare/quiet_panel.h"

#include "compare/chip_kinds.h"
#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "panels/common/panel_memory.h"
#include "support/error.h"

#include <algorithm>

namespace zor {

class QuietPanel::NoTools : public Tools {
  public:
    [[nodiscard]] bool exists(Tool) const override { return false; }
    void open(Tool) override {}
    void close(Tool) override {}
    Form& create(Tool) override { throw ToolError(cannotCreate); }
    [[nodiscard]] Form* find(Tool) const override { return nullptr; }
};

QuietPanel::QuietPanel(const Bench& like, const ChipPanel& chip)
    : desk(like.platform.loop)
    , tools(std::make_unique<NoTools>())
    , quiet(like.platform, desk, *tools)
    , bars(std::make_unique<Form>(desk, "bars", "bars"))
    , status(std::make_unique<TextField>(*bars, "CommStatus"))
    , connect(std::make_unique<Connect>(quiet)) {
    quiet.connect = connect.get();
    quiet.CommStatus = status.get();
    quiet.preferences = like.preferences;
    quiet.SetBijakuMode(like.IsBijakuModeSet());
    own = kindOf(chip).make(quiet);
    own->load(ChipPanel::AutoLoad::Never);
    own->SetFrameMode();
}

QuietPanel::~QuietPanel() = default;

void QuietPanel::take(ChipPanel& chip) {
    PanelMemory(chip).putTo(*own);
}

void forgetBandBefore(ChipPanel& panel) {
    const PanelTraits& traits = panel.traits();
    bool leans = std::ranges::any_of(traits.offeredBands, [&traits](Band band) {
        return !bandConstants(*traits.bands, band).base.has_value();
    });
    if (leans) {
        panel.band(traits.startBand)->choose();
    }
}

void takeWholeFile(ChipPanel& panel, const std::string& bytes) {
    forgetBandBefore(panel);
    std::string before = panel.Revision.text();
    panel.readConfiguration(bytes);
    if (panel.Revision.text() != before) {
        panel.readConfiguration(bytes);
    }
}

} // namespace zor
