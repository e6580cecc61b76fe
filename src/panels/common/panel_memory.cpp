// SPDX-License-Identifier: MIT
#include "panels/common/panel_memory.h"

#include "elements/range.h"
#include "elements/tab_strip.h"
#include "support/error.h"
#include "support/numbers.h"

#include <algorithm>
#include <optional>

namespace zor {

namespace {

/// A setting's value as text; nothing for an element that is no setting.
std::optional<std::string> settingOf(const Element& element) {
    if (const auto* tick = dynamic_cast<const TickBox*>(&element)) {
        return tick->ticked() ? "1" : "0";
    }
    if (const auto* option = dynamic_cast<const Option*>(&element)) {
        return option->chosen() ? "1" : "0";
    }
    if (const auto* slider = dynamic_cast<const Slider*>(&element)) {
        return std::to_string(slider->value());
    }
    if (const auto* list = dynamic_cast<const ListBox*>(&element)) {
        return list->text();
    }
    const auto* field = dynamic_cast<const TextField*>(&element);
    return field != nullptr && !field->readOnly() ? std::optional(field->text()) : std::nullopt;
}

/// Puts it back by the program's door, with the action that a change runs.
void putSetting(Element& element, const std::string& value) {
    if (auto* tick = dynamic_cast<TickBox*>(&element)) {
        tick->setTicked(value == "1");
    } else if (auto* option = dynamic_cast<Option*>(&element)) {
        if (value == "1") {
            option->choose();
        }
    } else if (auto* slider = dynamic_cast<Slider*>(&element)) {
        slider->setValue(roundToInt(numericPrefix(value)));
    } else if (auto* list = dynamic_cast<ListBox*>(&element)) {
        list->selectText(value);
    } else if (auto* field = dynamic_cast<TextField*>(&element)) {
        field->setText(value);
    }
}

} // namespace

PanelMemory::PanelMemory(ChipPanel& panel)
    : state(std::in_place, panel, panel)
    , configuration(panel.savedConfiguration())
    , updateNeeded(panel.LabelUpdate.visible())
    , calibrationNeeded(panel.LabelCalibration.visible())
    , statusShown(panel.statusShown())
    , place(panel.place())
    , file(panel.usedFile()) {
    for (Element* element : panel.elements()) {
        if (std::optional<std::string> setting = settingOf(*element)) {
            settings[element->name()] = *setting;
        } else if (const auto* word = dynamic_cast<const ControlWord*>(element)) {
            sent[word->name()] = word->lastSent();
        } else if (const auto* field = dynamic_cast<const TextField*>(element)) {
            results[field->name()] = field->text();
        } else if (const auto* lamp = dynamic_cast<const Lamp*>(element)) {
            lit[lamp->name()] = lamp->lit();
        } else if (const auto* strip = dynamic_cast<const TabStrip*>(element)) {
            page = strip->page();
        }
    }
    for (const KeptPart& part : panel.keptParts()) {
        values.push_back(part.take());
    }
}

void PanelMemory::forgetSent() {
    sent.clear();
    updateNeeded = true;
}

void PanelMemory::putTo(ChipPanel& panel) const {
    if (state) {
        state->putTo(panel, panel);
    } else {
        putLines(panel);
    }
    putMarks(panel);
}

void PanelMemory::putLines(ChipPanel& panel) const {
    try {
        panel.readConfiguration(configuration);
    } catch (const ToolError&) {
        // A text that a file cannot hold ends it early; what follows brings the rest.
    }
    putValues(panel);
    // A setting's action may move another one, so what still differs is put again.
    for (int time = 0; time < 3; ++time) {
        putSettings(panel);
    }
    putValues(panel);
}

void PanelMemory::putValues(ChipPanel& panel) const {
    KeptParts parts = panel.keptParts();
    bool same = parts.size() == values.size();
    for (std::size_t part = 0; same && part < parts.size(); ++part) {
        same = parts[part].take().index() == values[part].index();
    }
    if (!same) {
        // Another version of the program kept them; the settings alone have to do.
        return;
    }
    for (std::size_t part = 0; part < parts.size(); ++part) {
        parts[part].put(values[part]);
    }
    panel.partsPutBack();
    panel.elementsPutBack(panel.elements());
}

void PanelMemory::putSettings(ChipPanel& panel) const {
    for (Element* element : panel.elements()) {
        auto setting = settings.find(element->name());
        if (setting != settings.end() && settingOf(*element) != setting->second) {
            putSetting(*element, setting->second);
        }
    }
}

void PanelMemory::putMarks(ChipPanel& panel) const {
    for (Element* element : panel.elements()) {
        const std::string& name = element->name();
        if (auto* word = dynamic_cast<ControlWord*>(element)) {
            auto text = sent.find(name);
            word->takeSent(text == sent.end() ? std::string() : text->second);
        } else if (auto result = results.find(name); result != results.end()) {
            static_cast<TextField*>(element)->setText(result->second);
        } else if (auto* lamp = dynamic_cast<Lamp*>(element)) {
            auto kept = lit.find(name);
            bool on = kept != lit.end() && kept->second;
            lamp->paint(on, on ? panel.OnColor : panel.OffColor);
        } else if (auto* strip = dynamic_cast<TabStrip*>(element)) {
            strip->turn(std::clamp(page, 1, static_cast<int>(strip->titles().size())));
        }
    }
    panel.LabelUpdate.setVisible(updateNeeded);
    panel.LabelCalibration.setVisible(calibrationNeeded);
    panel.showStatusArea(statusShown);
    panel.setPlace(place);
    panel.setUsedFile(file);
}

} // namespace zor
