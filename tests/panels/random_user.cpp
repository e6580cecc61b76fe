// SPDX-License-Identifier: MIT
#include "panels/random_user.h"

#include "elements/list_box.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/tick_box.h"

#include <algorithm>

namespace zor::testing {

int RandomUser::upTo(int highest) {
    return std::uniform_int_distribution<int>(0, highest)(random);
}

std::string RandomUser::anyNumber() {
    static const int scales[] = {1, 6, 40, 260, 1000, 20000};
    double number = upTo(scales[upTo(5)]) + upTo(9999) / 10000.0;
    return std::to_string(number);
}

void RandomUser::typeIn(TextField& field) {
    field.type(anyNumber());
}

void RandomUser::set(Form& panel) {
    std::vector<Element*> order = panel.elements();
    std::shuffle(order.begin(), order.end(), random);
    for (Element* element : order) {
        set(*element);
    }
}

void RandomUser::set(Element& element) {
    if (auto* list = dynamic_cast<ListBox*>(&element)) {
        list->choosePosition(upTo(static_cast<int>(list->entries().size()) - 1));
    } else if (auto* tick = dynamic_cast<TickBox*>(&element)) {
        tick->tick(upTo(1) == 1);
    } else if (auto* option = dynamic_cast<Option*>(&element)) {
        option->click();
    } else if (auto* slider = dynamic_cast<Slider*>(&element)) {
        slider->slide(slider->minimum() + upTo(slider->maximum() - slider->minimum()));
    } else if (auto* arrows = dynamic_cast<UpDown*>(&element)) {
        upTo(1) == 1 ? arrows->stepUp() : arrows->stepDown();
    } else if (auto* field = dynamic_cast<TextField*>(&element)) {
        typeIn(*field);
    }
}

} // namespace zor::testing
