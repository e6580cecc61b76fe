// SPDX-License-Identifier: MIT
#include "elements/form_state.h"

#include "elements/element.h"
#include "elements/form.h"

namespace zor {

FormState::FormState(const Form& form, Undoable& rules) {
    for (const Element* element : form.elements()) {
        Aspects aspects = rules.keptAspects(*element);
        if (aspects != keepsNothing) {
            elements.emplace_back(element->name(), rules.takeElement(*element, aspects));
        }
    }
    for (const KeptPart& part : rules.keptParts()) {
        values.push_back(part.take());
    }
}

void FormState::putTo(const Form& form, Undoable& rules) const {
    KeptParts parts = rules.keptParts();
    for (std::size_t place = 0; place < values.size() && place < parts.size(); ++place) {
        parts[place].put(values[place]);
    }
    rules.partsPutBack();
    std::vector<Element*> all;
    for (const auto& [name, state] : elements) {
        if (Element* element = form.find(name)) {
            rules.putElement(*element, state, rules.keptAspects(*element));
            all.push_back(element);
        }
    }
    rules.elementsPutBack(all);
}

} // namespace zor
