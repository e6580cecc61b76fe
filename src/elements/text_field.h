// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace zor {

/// A field of text with a caret. Enter and the loss of focus are one commit.
class TextField : public Element {
  public:
    enum class Access { ReadWrite, ReadOnly };

    TextField(Form& owner, std::string name, std::string text = {}, Access access = Access::ReadWrite);

    [[nodiscard]] std::string text() const override { return content; }
    /// Puts a text there; no action runs.
    void setText(std::string text);
    /// Makes the text what it was once; a field that looks at what was typed takes it as its last text too.
    virtual void putBack(std::string text) { setText(std::move(text)); }

    [[nodiscard]] bool readOnly() const { return isReadOnly; }
    void setReadOnly(bool readOnly);
    [[nodiscard]] bool multiLine() const { return isMultiLine; }
    void setMultiLine(bool multiLine) { isMultiLine = multiLine; }
    /// How many bytes a user can bring it to; nothing for as many as one likes. The program's door does not
    /// heed it.
    [[nodiscard]] std::optional<std::size_t> limit() const { return greatestLength; }
    /// A text that is longer already stays.
    void setLimit(std::optional<std::size_t> length);

    /// What a view shows, greyed, while the text is empty; never a part of the text.
    [[nodiscard]] const std::string& placeholder() const { return placeholderText; }
    void setPlaceholder(std::string text);

    /// Where the next character goes, in bytes from 0 to the text's length; the end after the program's
    /// change.
    [[nodiscard]] std::size_t cursor() const { return cursorPosition; }
    /// Puts the caret there, at most to the end.
    void setCursor(std::size_t position);

    /// The user has typed in it, and has neither pressed Enter nor left it since.
    [[nodiscard]] bool typedIn() const { return isTypedIn; }

    bool type(std::string_view text) override;
    bool edit(std::string_view text) override;
    /// Types at the caret; '\r' is Enter, '\b' takes the character in front of the caret.
    bool press(char key) override;
    bool click() override;
    /// A mouse sends its click first, and so does this.
    bool doubleClick() override;
    /// Replaces the whole text at once, as a paste does; the caret comes to its end.
    bool replace(std::string_view text) { return replace(text, text.size()); }
    /// The same with the caret where the change left it.
    bool replace(std::string_view text, std::size_t caret);
    /// Presses Enter.
    bool enter();
    /// Puts the caret somewhere with the mouse; possible in a locked field too.
    bool placeCaret(std::size_t position);

    /// Enter or loss of focus.
    std::function<void()> onCommit;
    /// Every change of the text by the user.
    std::function<void()> onEdit;
    /// A key that the field gets, locked or not, before it does anything with it; true if the action took the
    /// key. A locked field types none.
    std::function<bool(char)> onKey;
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;

    /// The caret moved without the text having changed.
    Signal<> cursorMoved;

  private:
    bool writable() const { return usable() && !isReadOnly; }
    void putEdited(std::string text, std::size_t caret);
    void insertAtCaret(std::string_view text);
    void eraseAtCaret();
    void commit();

    std::string content;
    std::string placeholderText;
    std::optional<std::size_t> greatestLength;
    std::size_t cursorPosition = 0;
    bool isReadOnly = false;
    bool isMultiLine = false;
    bool isTypedIn = false;
};

} // namespace zor
