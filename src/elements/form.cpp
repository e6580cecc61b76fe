// SPDX-License-Identifier: MIT
#include "elements/form.h"

#include "elements/desk.h"
#include "elements/element.h"
#include "platform/event_loop.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace zor {

Form::Form(Desk& formDesk, std::string name, std::string title, Kind kind)
    : ownDesk(formDesk)
    , formName(std::move(name))
    , titleText(std::move(title))
    , formKind(kind) {
    ownDesk.add(*this);
}

Form::~Form() {
    ownDesk.remove(*this);
}

void Form::setTitle(std::string title) {
    titleText = std::move(title);
    changed.emit();
}

void Form::setDocument(std::string text) {
    if (documentText != text) {
        documentText = std::move(text);
        changed.emit();
    }
}

void Form::setPlace(Place place) {
    if (ownPlace != place) {
        ownPlace = place;
        changed.emit();
    }
}

void Form::setExtent(Extent extent) {
    if (ownExtent != extent) {
        ownExtent = extent;
        changed.emit();
    }
}

void Form::show() {
    if (hasClosed) {
        // Its farewell may still wait for the board; what comes after that is another form.
        return;
    }
    if (open) {
        raised.emit();
        ownDesk.bringToFront(*this);
        return;
    }
    open = true;
    ownDesk.opened.emit(*this);
    changed.emit();
    ownDesk.bringToFront(*this);
}

void Form::hide() {
    if (std::exchange(open, false)) {
        focus = nullptr;
        changed.emit();
        ownDesk.leaveFront(*this);
    }
}

void Form::close() {
    if (std::exchange(hasClosed, true)) {
        return;
    }
    // Hidden at once: what unload sends may wait for the board, and meanwhile nobody shall act on the form.
    hide();
    // The owner hears of it in any case; what it does then may wait, and be dropped, too.
    try {
        unload();
    } catch (...) {
        closed.emit();
        throw;
    }
    closed.emit();
}

void Form::restoreExtent(Extent extent) {
    extentIsUsers = true;
    setExtent(extent);
}

bool Form::acceptsUser() const {
    const Form* modal = ownDesk.modalForm();
    return open && (modal == nullptr || modal == this);
}

bool Form::inFront() const {
    return ownDesk.front() == this;
}

bool Form::act(Gesture gesture, const std::function<void()>& action) {
    if (!acceptsUser()) {
        return false;
    }
    gesture.form = this;
    ownDesk.carryOut(gesture, action);
    return true;
}

bool Form::userActivate() {
    return act({GestureKind::Activate}, [this] { ownDesk.bringToFront(*this); });
}

bool Form::userClose() {
    return act({GestureKind::Close}, [this] { closeButton(); });
}

bool Form::userClick() {
    return act({GestureKind::Click}, [this] {
        if (onClick) {
            onClick();
        }
    });
}

bool Form::userDoubleClick() {
    // One action around both: what the click gave up is still there for the rest of it.
    return act({GestureKind::DoubleClick}, [this] {
        userClick();
        userSecondClick();
    });
}

bool Form::userSecondClick() {
    return act({GestureKind::SecondClick}, [this] {
        if (onDoubleClick) {
            onDoubleClick();
        }
    });
}

bool Form::userMove(Place place) {
    return act({.kind = GestureKind::Move, .first = place.top, .second = place.left},
               [this, place] { setPlace(place); });
}

bool Form::userResize(Extent extent) {
    return act({.kind = GestureKind::Resize, .first = extent.height, .second = extent.width},
               [this, extent] { restoreExtent(extent); });
}

Element* Form::find(std::string_view elementName) const {
    auto entry = byName.find(elementName);
    return entry == byName.end() ? nullptr : entry->second;
}

void Form::setFocus(Element* element) {
    if (focus == element) {
        return;
    }
    Element* left = std::exchange(focus, element);
    changed.emit();
    if (left != nullptr && left->onLeave) {
        left->onLeave();
    }
}

void Form::perform(const std::function<void()>& action) const {
    loop().perform(action);
}

EventLoop& Form::loop() const {
    return ownDesk.loop();
}

void Form::add(Element& element) {
    members.push_back(&element);
    [[maybe_unused]] bool fresh = byName.emplace(element.name(), &element).second;
    assert(fresh && "two elements of one form bear the same name");
}

void Form::remove(const Element& element) {
    members.erase(std::remove(members.begin(), members.end(), &element), members.end());
    byName.erase(element.name());
    if (focus == &element) {
        focus = nullptr;
    }
}

} // namespace zor
