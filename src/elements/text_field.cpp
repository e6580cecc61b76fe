// SPDX-License-Identifier: MIT
#include "elements/text_field.h"

#include "elements/form.h"

#include <algorithm>
#include <utility>

namespace zor {

TextField::TextField(Form& owner, std::string name, std::string text, Access access)
    : Element(owner, std::move(name))
    , content(std::move(text))
    , cursorPosition(content.size())
    , isReadOnly(access == Access::ReadOnly) {
    onLeave = [this] {
        if (!isReadOnly) {
            commit();
        }
    };
}

void TextField::setText(std::string text) {
    isTypedIn = false;
    if (content == text) {
        setCursor(content.size());
        return;
    }
    cursorPosition = text.size();
    content = std::move(text);
    changed.emit();
}

void TextField::setReadOnly(bool readOnly) {
    if (std::exchange(isReadOnly, readOnly) != readOnly) {
        changed.emit();
    }
}

void TextField::setLimit(std::optional<std::size_t> length) {
    if (std::exchange(greatestLength, length) != length) {
        changed.emit();
    }
}

void TextField::setPlaceholder(std::string text) {
    if (placeholderText != text) {
        placeholderText = std::move(text);
        changed.emit();
    }
}

void TextField::setCursor(std::size_t position) {
    std::size_t held = std::min(position, content.size());
    if (std::exchange(cursorPosition, held) != held) {
        cursorMoved.emit();
    }
}

void TextField::putEdited(std::string text, std::size_t caret) {
    isTypedIn = true;
    cursorPosition = std::min(caret, text.size());
    if (content != text) {
        content = std::move(text);
        changed.emit();
    }
    if (onEdit) {
        onEdit();
    }
}

void TextField::insertAtCaret(std::string_view text) {
    if (greatestLength && content.size() + text.size() > *greatestLength) {
        return;
    }
    std::string grown = content;
    grown.insert(cursorPosition, text);
    putEdited(std::move(grown), cursorPosition + text.size());
}

void TextField::eraseAtCaret() {
    if (cursorPosition == 0) {
        return;
    }
    bool lineEnd = cursorPosition >= 2 && content.compare(cursorPosition - 2, 2, "\r\n") == 0;
    std::size_t start = cursorPosition - (lineEnd ? 2 : 1);
    std::string shrunk = content;
    shrunk.erase(start, cursorPosition - start);
    putEdited(std::move(shrunk), start);
}

bool TextField::edit(std::string_view text) {
    if (!writable()) {
        return false;
    }
    carryOut({GestureKind::Edit, text}, [&] {
        if (greatestLength == 0U) {
            return;
        }
        if (text.empty() || !onEdit) {
            std::string_view held = text.substr(0, greatestLength.value_or(text.size()));
            putEdited(std::string(held), held.size());
            return;
        }
        // The first character replaces the selected old text, each further one is typed behind it.
        putEdited(std::string(1, text.front()), 1);
        for (char c : text.substr(1)) {
            insertAtCaret(std::string_view(&c, 1));
        }
    });
    return true;
}

bool TextField::replace(std::string_view text, std::size_t caret) {
    if (!writable()) {
        return false;
    }
    carryOut({GestureKind::Replace, text, static_cast<double>(caret)}, [&] {
        std::string held(text);
        std::size_t surplus =
            greatestLength && text.size() > *greatestLength ? text.size() - *greatestLength : 0;
        if (surplus <= caret && caret <= held.size()) {
            // What stands in front of the caret was just put in; as much of it stays as fits.
            held.erase(caret - surplus, surplus);
            putEdited(std::move(held), caret - surplus);
        } else {
            held.resize(held.size() - surplus);
            putEdited(std::move(held), caret);
        }
    });
    return true;
}

bool TextField::enter() {
    if (!writable()) {
        return false;
    }
    return act({GestureKind::Enter}, [this] {
        if (isMultiLine) {
            insertAtCaret("\r\n");
        } else {
            commit();
        }
    });
}

void TextField::commit() {
    isTypedIn = false;
    if (onCommit) {
        onCommit();
    }
}

bool TextField::type(std::string_view text) {
    return edit(text) && (isMultiLine || enter());
}

bool TextField::press(char key) {
    if (!writable() && !(usable() && onKey)) {
        return false;
    }
    bool refused = false;
    carryOut({GestureKind::Press, std::string_view(&key, 1)}, [&] {
        // The key that unlocks a field is not typed into it.
        bool locked = isReadOnly;
        if ((onKey && onKey(key)) || locked) {
            return;
        }
        if (key == '\r') {
            refused = !enter();
        } else if (key == '\b') {
            eraseAtCaret();
        } else {
            insertAtCaret(std::string_view(&key, 1));
        }
    });
    return !refused;
}

bool TextField::click() {
    return act({GestureKind::Click}, [this] {
        if (onClick) {
            onClick();
        }
    });
}

bool TextField::doubleClick() {
    return act({GestureKind::DoubleClick}, [this] {
        if (onClick) {
            onClick();
        }
        if (onDoubleClick) {
            onDoubleClick();
        }
    });
}

bool TextField::placeCaret(std::size_t position) {
    return act({.kind = GestureKind::PlaceCaret, .first = static_cast<double>(position)},
               [this, position] { setCursor(position); });
}

} // namespace zor
