// SPDX-License-Identifier: MIT
#include "elements/desk.h"

#include "elements/form.h"

#include <algorithm>

namespace zor {

Form* Desk::find(std::string_view formName) const {
    Form* found = nullptr;
    for (Form* form : members) {
        if (form->name() == formName && !form->isClosed() && (found == nullptr || !found->isOpen())) {
            found = form;
        }
    }
    return found;
}

Form* Desk::modalForm() const {
    auto last = std::find_if(members.rbegin(), members.rend(), [](const Form* form) {
        return form->isOpen() && form->kind() == Form::Kind::Modal;
    });
    return last == members.rend() ? nullptr : *last;
}

void Desk::add(Form& form) {
    members.push_back(&form);
}

void Desk::remove(Form& form) {
    removed.emit(form);
    members.erase(std::remove(members.begin(), members.end(), &form), members.end());
}

} // namespace zor
