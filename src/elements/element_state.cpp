// SPDX-License-Identifier: MIT
#include "elements/element_state.h"

#include "elements/list_box.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"

namespace zor {

namespace {

void takeContent(const Element& element, ElementState& state) {
    if (const auto* field = dynamic_cast<const TextField*>(&element)) {
        state.text = field->text();
        state.readOnly = field->readOnly();
        state.limit = field->limit();
    } else if (const auto* list = dynamic_cast<const ListBox*>(&element)) {
        state.text = list->text();
        state.number = list->position();
        state.entries = list->entries();
        state.codes = list->codesBehind();
    } else if (const auto* tick = dynamic_cast<const TickBox*>(&element)) {
        state.number = tick->ticked() ? 1 : 0;
    } else if (const auto* option = dynamic_cast<const Option*>(&element)) {
        state.number = option->chosen() ? 1 : 0;
    } else if (const auto* slider = dynamic_cast<const Slider*>(&element)) {
        state.number = slider->value();
    }
}

void putContent(Element& element, const ElementState& state) {
    if (auto* field = dynamic_cast<TextField*>(&element)) {
        field->setLimit(state.limit);
        field->setReadOnly(state.readOnly);
        field->putBack(state.text);
    } else if (auto* list = dynamic_cast<ListBox*>(&element)) {
        list->putBack(state.entries, state.text, state.number, state.codes);
    } else if (auto* tick = dynamic_cast<TickBox*>(&element)) {
        tick->putTicked(state.number != 0);
    } else if (auto* option = dynamic_cast<Option*>(&element)) {
        if (state.number != 0) {
            option->putChosen();
        } else {
            option->unchoose();
        }
    } else if (auto* slider = dynamic_cast<Slider*>(&element)) {
        slider->putValue(state.number);
    }
}

} // namespace

ElementState stateOf(const Element& element, Aspects aspects) {
    ElementState state;
    if ((aspects & keepsVisible) != 0) {
        state.visible = element.visible();
    }
    if ((aspects & keepsEnabled) != 0) {
        state.enabled = element.enabled();
    }
    if ((aspects & keepsCaption) != 0) {
        state.caption = element.caption();
    }
    if ((aspects & keepsLook) != 0) {
        state.tip = element.tip();
        state.background = element.background();
    }
    if ((aspects & keepsContent) != 0) {
        takeContent(element, state);
    }
    return state;
}

void putState(Element& element, const ElementState& state, Aspects aspects) {
    if ((aspects & keepsVisible) != 0) {
        element.setVisible(state.visible);
    }
    if ((aspects & keepsEnabled) != 0) {
        element.setEnabled(state.enabled);
    }
    if ((aspects & keepsCaption) != 0) {
        element.setCaption(state.caption);
    }
    if ((aspects & keepsLook) != 0) {
        element.setTip(state.tip);
        element.setBackground(state.background);
    }
    if ((aspects & keepsContent) != 0) {
        putContent(element, state);
    }
}

} // namespace zor
