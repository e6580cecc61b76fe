// SPDX-License-Identifier: MIT
#include "elements/options.h"

#include <utility>

namespace zor {

Option::Option(Form& owner, OptionGroup& optionGroup, std::string name, std::string caption)
    : Element(owner, std::move(name))
    , group(optionGroup) {
    setCaption(std::move(caption));
    group.members.push_back(this);
}

void Option::putChosen() {
    Option* before = std::exchange(group.current, this);
    if (before == this) {
        return;
    }
    if (before != nullptr) {
        before->changed.emit();
    }
    changed.emit();
}

void Option::choose() {
    putChosen();
    if (onChoose) {
        onChoose();
    }
}

void Option::unchoose() {
    if (chosen()) {
        group.current = nullptr;
        changed.emit();
    }
}

bool Option::click() {
    return act({GestureKind::Click}, [this] { choose(); });
}

} // namespace zor
