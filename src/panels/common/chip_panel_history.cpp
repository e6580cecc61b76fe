// SPDX-License-Identifier: MIT
// What of a panel can be undone: its settings and what follows from them. What the chip said, and what it was
// sent, stays as it is.
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "panels/common/chip_panel.h"
#include "panels/common/setting_captions.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace zor {

namespace {

bool isWord(const Element& element) {
    return dynamic_cast<const ControlWord*>(&element) != nullptr;
}

} // namespace

bool ChipPanel::isSetting(const Element& element) const {
    const auto* field = dynamic_cast<const TextField*>(&element);
    if (field != nullptr) {
        return !field->readOnly();
    }
    return dynamic_cast<const TickBox*>(&element) != nullptr ||
           dynamic_cast<const Option*>(&element) != nullptr ||
           dynamic_cast<const Slider*>(&element) != nullptr ||
           dynamic_cast<const ListBox*>(&element) != nullptr;
}

Aspects ChipPanel::keptAspects(const Element& element) const {
    if (&element == &LabelUpdate || &element == &LabelCalibration) {
        // They tell of the chip too, and have a rule of their own.
        return keepsNothing;
    }
    if (isSetting(element) || dynamic_cast<const TextField*>(&element) != nullptr) {
        return keepsAll;
    }
    if (dynamic_cast<const Lamp*>(&element) != nullptr) {
        return keepsVisible | keepsCaption;
    }
    if (dynamic_cast<const Label*>(&element) != nullptr) {
        return keepsVisible | keepsCaption;
    }
    bool acts =
        dynamic_cast<const Button*>(&element) != nullptr || dynamic_cast<const UpDown*>(&element) != nullptr;
    return acts ? keepsVisible | keepsEnabled : keepsNothing;
}

std::string ChipPanel::settingCaption(const Element& element) const {
    return zor::settingCaption(element);
}

std::string ChipPanel::actionName() {
    return std::exchange(nameOfAction, {});
}

KeptParts ChipPanel::keptParts() {
    KeptParts parts = {keptPart(CrystalRatio),    keptPart(BandMultiplier), keptPart(BandBase),
                       keptPart(BandCode),        keptPart(FreqCode),       keptPart(wakeUp.mantissa),
                       keptPart(wakeUp.exponent), keptPart(wakeUp.divisor), keptPart(lowBattery),
                       keptPart(crystalShown)};
    KeptPart voltage = keptPart(bench.preferences.Pref_Voltage);
    voltage.put = [this, put = voltage.put](const KeptValue& kept) {
        put(kept);
        bench.showSupply();
    };
    KeptPart timeout = keptPart(bench.preferences.Pref_RxLinkTimeout);
    KeptPart path = keptPart(used.path);
    KeptPart content = keptPart(used.content);
    content.put = [this, put = content.put](const KeptValue& kept) {
        put(kept);
        showUsedFile();
    };
    for (KeptPart* part : {&voltage, &timeout, &path, &content}) {
        part->shared = true;
        parts.push_back(std::move(*part));
    }
    return parts;
}

void ChipPanel::putElement(Element& element, const ElementState& state, Aspects aspects) {
    // A word follows from the settings, once all of them are back.
    putState(element, state, isWord(element) ? keepsVisible | keepsEnabled : aspects);
}

void ChipPanel::elementsPutBack(const std::vector<Element*>& elements) {
    for (Element* element : elements) {
        if (auto* word = dynamic_cast<ControlWord*>(element)) {
            word->rebuildQuietly();
        }
    }
}

Undoable::Marks ChipPanel::takeMarks() const {
    std::uint64_t known = 0;
    for (const ControlWord* word : allWords) {
        known = known * 31 + std::hash<std::string>()(word->lastSent());
    }
    return {LabelUpdate.visible() ? 1U : 0U, LabelCalibration.visible() ? 1U : 0U, known, calibrations};
}

void ChipPanel::putMarks(const Marks& marks) {
    Marks now = takeMarks();
    // As they were, unless the chip has heard or forgotten something since.
    bool waiting = std::any_of(updateWords.begin(), updateWords.end(),
                               [](const ControlWord* word) { return word->pending(); });
    LabelUpdate.setVisible(marks[2] == now[2] ? marks[0] != 0 : waiting);
    LabelCalibration.setVisible(marks[3] == now[3] ? marks[1] != 0 : BandCode != calibratedBand);
}

} // namespace zor
