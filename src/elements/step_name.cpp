// SPDX-License-Identifier: MIT
#include "elements/step_name.h"

#include "elements/button.h"
#include "elements/menu.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"

namespace zor {

namespace {

/// Longer texts are cut in a step's name, in characters.
constexpr std::size_t longestText = 24;

/// One line of it, not too long, its quotation clear where it is empty.
std::string shortened(const std::string& text) {
    std::string line = text.substr(0, text.find_first_of("\r\n"));
    if (line.size() > longestText) {
        std::size_t end = longestText - 3;
        // Not in the midst of a character.
        while (end > 0 && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) {
            --end;
        }
        line = line.substr(0, end) + "...";
    } else if (line.size() < text.size()) {
        line += "...";
    }
    return line.empty() ? "(empty)" : line;
}

/// A button's or entry's caption as a sentence names it.
std::string plainCaption(const std::string& caption) {
    std::string plain;
    for (char c : caption) {
        if (c != '&') {
            plain += c;
        }
    }
    while (plain.ends_with('.')) {
        plain.pop_back();
    }
    return plain;
}

std::string valueText(const Element& element, const ElementState& state) {
    if (dynamic_cast<const TickBox*>(&element) != nullptr) {
        return state.number != 0 ? "on" : "off";
    }
    return dynamic_cast<const Slider*>(&element) != nullptr ? std::to_string(state.number)
                                                            : shortened(state.text);
}

bool isField(const SettingChange& change) {
    return dynamic_cast<const TextField*>(&change.element) != nullptr;
}

/// An option that another one was chosen in place of.
bool isGivenUp(const SettingChange& change) {
    return dynamic_cast<const Option*>(&change.element) != nullptr && change.after.number == 0;
}

std::string changeName(const Undoable& rules, const SettingChange& change,
                       const std::vector<SettingChange>& changes) {
    std::string caption = rules.settingCaption(change.element);
    if (const auto* option = dynamic_cast<const Option*>(&change.element)) {
        std::string before = "none";
        for (const SettingChange& other : changes) {
            const auto* left = dynamic_cast<const Option*>(&other.element);
            if (left != nullptr && &left->ownGroup() == &option->ownGroup() && other.before.number != 0) {
                before = left->caption();
            }
        }
        return caption + " " + before + " -> " + option->caption();
    }
    const auto* field = dynamic_cast<const TextField*>(&change.element);
    if (field != nullptr && field->multiLine()) {
        return caption;
    }
    return caption + " " + valueText(change.element, change.before) + " -> " +
           valueText(change.element, change.after);
}

} // namespace

std::string stepName(const Undoable& rules, const std::vector<SettingChange>& changes,
                     const Gesture* gesture) {
    const Element* source = gesture == nullptr ? nullptr : gesture->element;
    const SettingChange* named = nullptr;
    for (const SettingChange& change : changes) {
        std::string own = rules.changeName(change.element, change.before, change.after);
        if (!own.empty()) {
            return own;
        }
        if (&change.element == source) {
            return changeName(rules, change, changes);
        }
        // A field says more than the slider beside it, the option chosen more than the one given up.
        if (named == nullptr || (isField(change) && !isField(*named)) ||
            (!isGivenUp(change) && isGivenUp(*named))) {
            named = &change;
        }
    }
    bool acts =
        dynamic_cast<const Button*>(source) != nullptr || dynamic_cast<const MenuEntry*>(source) != nullptr;
    if (acts && (changes.size() > 1 || rules.buttonsNameSteps()) && !source->caption().empty()) {
        return plainCaption(source->caption());
    }
    return changeName(rules, *named, changes);
}

} // namespace zor
