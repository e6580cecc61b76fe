// SPDX-License-Identifier: MIT
#include "elements/text_field.h"

#include "elements/form.h"

#include <utility>

namespace zor {

TextField::TextField(Form& owner, std::string name, std::string text, Access access)
    : Element(owner, std::move(name))
    , content(std::move(text))
    , cursorPosition(content.size())
    , isReadOnly(access == Access::ReadOnly) {
    onLeave = [this] {
        if (onCommit && !isReadOnly) {
            onCommit();
        }
    };
}

void TextField::setText(std::string text) {
    cursorPosition = text.size();
    if (content != text) {
        content = std::move(text);
        changed.emit();
    }
}

void TextField::setReadOnly(bool readOnly) {
    if (std::exchange(isReadOnly, readOnly) != readOnly) {
        changed.emit();
    }
}

void TextField::putEdited(std::string text) {
    setText(std::move(text));
    if (onEdit) {
        onEdit();
    }
}

bool TextField::edit(std::string_view text) {
    if (!writable()) {
        return false;
    }
    form().perform([&] {
        if (text.empty() || !onEdit) {
            putEdited(std::string(text));
            return;
        }
        // The first character replaces the selected old text, each further one is typed behind it.
        putEdited(std::string(1, text.front()));
        for (char c : text.substr(1)) {
            putEdited(content + c);
        }
    });
    return true;
}

bool TextField::replace(std::string_view text) {
    if (!writable()) {
        return false;
    }
    form().perform([&] { putEdited(std::string(text)); });
    return true;
}

bool TextField::enter() {
    if (!writable()) {
        return false;
    }
    return act([this] {
        if (isMultiLine) {
            putEdited(content + "\r\n");
        } else if (onCommit) {
            onCommit();
        }
    });
}

bool TextField::type(std::string_view text) {
    return edit(text) && (isMultiLine || enter());
}

bool TextField::press(char key) {
    if (key == '\r') {
        return enter();
    }
    if (!writable()) {
        return false;
    }
    form().perform([&] {
        if (key == '\b') {
            if (!content.empty()) {
                putEdited(content.substr(0, content.size() - 1));
            }
        } else {
            putEdited(content + key);
        }
    });
    return true;
}

} // namespace zor
