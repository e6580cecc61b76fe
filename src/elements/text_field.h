// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

namespace zor {

/// A field of text. Enter and the loss of focus are one commit.
class TextField : public Element {
  public:
    enum class Access { ReadWrite, ReadOnly };

    TextField(Form& owner, std::string name, std::string text = {}, Access access = Access::ReadWrite);

    [[nodiscard]] std::string text() const override { return content; }
    /// Puts a text there; no action runs.
    void setText(std::string text);

    [[nodiscard]] bool readOnly() const { return isReadOnly; }
    void setReadOnly(bool readOnly);
    [[nodiscard]] bool multiLine() const { return isMultiLine; }
    void setMultiLine(bool multiLine) { isMultiLine = multiLine; }
    /// Where the next character goes, from 0 to the text's length; the end after any change.
    [[nodiscard]] std::size_t cursor() const { return cursorPosition; }

    bool type(std::string_view text) override;
    bool edit(std::string_view text) override;
    bool press(char key) override;
    /// Replaces the whole text at once, as a paste does.
    bool replace(std::string_view text);
    /// Presses Enter.
    bool enter();

    /// Enter or loss of focus.
    std::function<void()> onCommit;
    /// Every change of the text by the user.
    std::function<void()> onEdit;

  private:
    bool writable() const { return usable() && !isReadOnly; }
    void putEdited(std::string text);

    std::string content;
    std::size_t cursorPosition = 0;
    bool isReadOnly = false;
    bool isMultiLine = false;
};

} // namespace zor
