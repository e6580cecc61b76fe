// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

namespace zor {

/// Long text that only grows until it is cleared: a terminal's or a link test's received text. Adding a
/// character costs the same however much is there, so `changed` is not told of it; `appended` is.
class Monitor : public Element {
  public:
    Monitor(Form& owner, std::string name)
        : Element(owner, std::move(name)) {}

    [[nodiscard]] std::string text() const override { return content; }
    [[nodiscard]] const std::string& contents() const { return content; }
    void append(std::string_view text);
    /// Empties it; tells `changed`.
    void clear();
    /// Drops what stands in front of that place; tells `changed`.
    void keepFrom(std::size_t position);
    /// A locked one only shows; no key does anything.
    [[nodiscard]] bool locked() const { return isLocked; }
    void setLocked(bool locked) { isLocked = locked; }
    /// Where the product last put the cursor.
    [[nodiscard]] std::size_t cursor() const { return cursorPosition; }
    void setCursor(std::size_t position) { cursorPosition = position; }

    /// Types one key: it shows at the end of the text (Enter as CR LF, backspace takes the last character
    /// back), then the key action runs.
    bool press(char key) override;

    std::function<void(char)> onKey;
    /// What has come since the last call, for views and for those who parse it.
    Signal<std::string_view> appended;

  private:
    void takeBackLast();

    std::string content;
    std::size_t cursorPosition = 0;
    bool isLocked = false;
};

} // namespace zor
