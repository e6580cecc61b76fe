// SPDX-License-Identifier: MIT
// What of the content editor can be undone.
#include "eeprom/ecet.h"

#include <array>
#include <string_view>
#include <utility>

namespace zor {

namespace {

/// What stands on each tab, by its name without the tab's number.
constexpr std::array<std::pair<std::string_view, std::string_view>, 7> captions = {{
    {"TB_EventContent", "Routine"},
    {"TB_Payload", "Payload"},
    {"TB_FillData", "Fill byte"},
    {"TB_Pattern", "Pattern"},
    {"OB_HexView", "Payload view"},
    {"OB_Ascii_View", "Payload view"},
    {"CB_FillEmptieswithC4", "Append Sleep Command if empty"},
}};

} // namespace

bool ECET::isSetting(const Element& element) const {
    return dynamic_cast<const TextField*>(&element) != nullptr ||
           dynamic_cast<const TickBox*>(&element) != nullptr ||
           dynamic_cast<const Option*>(&element) != nullptr;
}

Aspects ECET::keptAspects(const Element& element) const {
    if (isSetting(element)) {
        return keepsAll;
    }
    if (const auto* label = dynamic_cast<const Label*>(&element)) {
        std::string_view name = label->name();
        // The other labels follow the texts by themselves.
        return name.starts_with("Label3")     ? keepsCaption
               : name.starts_with("LockHint") ? keepsVisible
                                              : keepsNothing;
    }
    return dynamic_cast<const Button*>(&element) != nullptr ? keepsEnabled : keepsNothing;
}

KeptParts ECET::keptParts() {
    KeptParts parts;
    for (const auto& eventTab : tabs) {
        parts.push_back(eventTab->keptView());
    }
    return parts;
}

std::string ECET::settingCaption(const Element& element) const {
    for (const auto& [name, caption] : captions) {
        if (!element.name().starts_with(std::string(name) + "(")) {
            continue;
        }
        std::size_t event = static_cast<std::size_t>(element.name()[name.size() + 1] - '0');
        std::string tabName;
        for (char c : std::string_view(eventRows.at(event).tab)) {
            if (c != '&') {
                tabName += c;
            }
        }
        return std::string(caption) + " (" + tabName + ")";
    }
    return "Image";
}

} // namespace zor
