// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "panels/common/frequency.h"
#include "panels/common/levels.h"
#include "panels/common/timing.h"

#include <chrono>
#include <vector>

namespace zor {

/// What a save does about the name that its dialog gave.
enum class SaveName {
    AsChosen,
    CutDoubled,   ///< a name that ends in the extension twice loses one
    AppendMissing ///< a name that does not end in the extension gets it
};

/// What of a panel's configuration files differs between chips.
struct FileTraits {
    /// Without the point.
    const char* extension = "";
    const char* filter = "";
    const char* loadTitle = "";
    const char* saveTitle = "";
    /// The first line, compared byte for byte.
    const char* banner = "";
    /// What the error of a wrong banner says.
    const char* wrongBanner = "";
    SaveName saveName = SaveName::AsChosen;
    /// Title of the box for a wrong extension at a save.
    const char* wrongTypeOnSave = "File save error";
};

/// What a panel's PowerSupply field does.
enum class SupplyField {
    Commits,  ///< a typed voltage is checked, stored and sent
    ShownOnly ///< only files read and write it
};

/// What differs between the chips' panels before any oddity: one table a chip.
struct PanelTraits {
    const char* formName = "";
    const char* title = "";

    /// Heights with the status area folded in and out, and the width, in twips.
    Twips foldedHeight = 0;
    Twips unfoldedHeight = 0;
    Twips width = 0;

    FrequencyForm frequencyForm = FrequencyForm::TenThenMultiplier;
    const BandTable* bands = &multiplierBands;
    /// The bands that the chip has, in the order of their options.
    std::vector<Band> offeredBands{};
    Band startBand = Band::Band315;
    const char* startFrequency = "";
    const char* startCapacitance = "";

    WakeUpTraits wakeUp{};
    ThresholdTraits threshold{};
    SupplyField supplyField = SupplyField::Commits;

    /// Captions of the status indicators, from the first byte's bit 7 on.
    std::vector<const char*> statusCaptions{};
    /// Bytes that a status read takes, and its pace.
    int statusBytes = 1;
    std::chrono::milliseconds statusInterval{};
    /// The line between "L2" and "L0" of a status read; empty if the chip needs none.
    const char* statusCommand = "";
    /// Where the answer to "RI" stands in the last 15 characters, from 1.
    std::size_t interruptPosition = 0;

    /// Said at the end of a load, and in the box when Update finds no port.
    const char* loadNotice = "";
    const char* updateWithoutPort = "";

    FileTraits file{};
};

} // namespace zor
