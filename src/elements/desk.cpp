// SPDX-License-Identifier: MIT
#include "elements/desk.h"

#include "elements/form.h"
#include "platform/event_loop.h"

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

Form* Desk::front() const {
    return stacked.empty() ? nullptr : stacked.back();
}

void Desk::bringToFront(Form& form) {
    // The main window and what is modal stand before the others without taking their place.
    if (form.kind() != Form::Kind::Window || front() == &form) {
        return;
    }
    Form* before = front();
    stacked.erase(std::remove(stacked.begin(), stacked.end(), &form), stacked.end());
    stacked.push_back(&form);
    if (before != nullptr) {
        before->deactivated.emit();
    }
    // What the other one sent as it lost the front may have waited, and anything may have happened.
    if (front() == &form) {
        form.activated.emit();
    }
}

void Desk::leaveFront(Form& form) {
    bool wasFront = front() == &form;
    stacked.erase(std::remove(stacked.begin(), stacked.end(), &form), stacked.end());
    if (wasFront && front() != nullptr) {
        front()->activated.emit();
    }
}

void Desk::carryOut(Gesture gesture, const std::function<void()>& action) {
    ownLoop.perform([&] {
        gesture.depth = static_cast<int>(running.size());
        // Whoever calls the door without the loop having run since does a part of the gesture around it.
        gesture.byUser = running.empty() || ownLoop.waiting() > running.back();
        struct Inside {
            std::vector<int>& gestures;
            Inside(std::vector<int>& all, int waits)
                : gestures(all) {
                gestures.push_back(waits);
            }
            Inside(const Inside&) = delete;
            Inside& operator=(const Inside&) = delete;
            ~Inside() { gestures.pop_back(); }
        } inside(running, ownLoop.waiting());
        gestureBegins.emit(gesture);
        try {
            action();
        } catch (...) {
            gestureEnded.emit(gesture);
            throw;
        }
        gestureEnded.emit(gesture);
    });
}

void Desk::add(Form& form) {
    members.push_back(&form);
}

void Desk::remove(Form& form) {
    removed.emit(form);
    stacked.erase(std::remove(stacked.begin(), stacked.end(), &form), stacked.end());
    members.erase(std::remove(members.begin(), members.end(), &form), members.end());
}

} // namespace zor
