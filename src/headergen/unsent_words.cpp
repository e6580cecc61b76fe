// SPDX-License-Identifier: MIT
#include "headergen/unsent_words.h"

#include "elements/form.h"

namespace zor {

void UnsentWords::follow(Form& panel, const HeaderBlocks& blocks) {
    words.clear();
    subscriptions.clear();
    for (const HeaderBlock& block : blocks) {
        if (const ControlWord* element = block.word.element) {
            words.push_back({element, block.command, element->text()});
        }
    }
    for (Element* element : panel.elements()) {
        if (dynamic_cast<ControlWord*>(element) != nullptr) {
            subscriptions.push_back(element->changed.subscribe([this] { changed.emit(); }));
        }
    }
    subscriptions.push_back(panel.closed.subscribe([this] {
        // What the chip has is not known any more, and the words go with the panel.
        forget();
        changed.emit();
    }));
}

void UnsentWords::forget() {
    words.clear();
    subscriptions.clear();
}

std::vector<std::string> UnsentWords::commands() const {
    std::vector<std::string> unsent;
    for (const Word& word : words) {
        if (word.element->lastSent() != word.text) {
            unsent.push_back(word.command);
        }
    }
    return unsent;
}

} // namespace zor
