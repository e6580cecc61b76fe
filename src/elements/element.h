// SPDX-License-Identifier: MIT
#pragma once

#include "elements/colour.h"
#include "elements/gesture.h"
#include "elements/signal.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

class Form;

/// One named thing of a window: what the user sees and reaches under the product's own name for it.
///
/// There are two doors. The program's door (setText, select, ...) changes the value and runs the change
/// action where the product says that a program's change does. The user's door (click, type, choose, ...) is
/// what views and transcripts call; it answers false, and does nothing, on an element that a user could not
/// act on just then, or that has no such gesture. An element belongs to its form and lives as long as the
/// form.
class Element {
  public:
    /// @param elementName  the product's name; a member of an array carries its index: "status(3)"
    Element(Form& owner, std::string elementName);
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;
    virtual ~Element();

    [[nodiscard]] const std::string& name() const { return elementName; }
    [[nodiscard]] Form& form() const { return owner; }

    [[nodiscard]] bool visible() const { return isVisible; }
    void setVisible(bool visible);
    [[nodiscard]] bool enabled() const { return isEnabled; }
    void setEnabled(bool enabled);
    [[nodiscard]] const std::string& caption() const { return captionText; }
    void setCaption(std::string text);
    [[nodiscard]] const std::string& tip() const { return tipText; }
    void setTip(std::string text);
    /// What else the element's tip says on the screen, behind its own text: what belongs to this moment.
    [[nodiscard]] const std::string& hint() const { return hintText; }
    void setHint(std::string text);
    /// The keys that do what a click does ("Ctrl+O"), as views show and watch them; empty for none.
    [[nodiscard]] const std::string& shortcut() const { return shortcutText; }
    void setShortcut(std::string keys);
    [[nodiscard]] std::optional<Colour> background() const { return backgroundColour; }
    void setBackground(std::optional<Colour> colour);

    /// The frame, bar or menu that this element stands in: hidden or disabled with it.
    [[nodiscard]] Element* container() const { return containerElement; }
    void setContainer(Element* element) { containerElement = element; }

    /// Visible, and so is every container. A page of a tab strip that is not turned up counts as visible.
    [[nodiscard]] bool shown() const;
    /// Enabled, and so is every container.
    [[nodiscard]] bool active() const;
    /// A user could act on it now: shown and active, its window open and not behind a modal one.
    [[nodiscard]] bool usable() const;
    [[nodiscard]] bool focused() const;

    /// What stands on the screen: a field's or list's text, anything else's caption.
    [[nodiscard]] virtual std::string text() const { return captionText; }

    // The user's door.
    virtual bool click() { return false; }
    virtual bool doubleClick() { return false; }
    /// Replaces the text and presses Enter.
    virtual bool type(std::string_view) { return false; }
    /// Replaces the text character by character without leaving the field.
    virtual bool edit(std::string_view) { return false; }
    /// Presses one key.
    virtual bool press(char) { return false; }
    virtual bool chooseText(std::string_view) { return false; }
    virtual bool choosePosition(int) { return false; }
    virtual bool tick(bool) { return false; }
    virtual bool slide(int) { return false; }
    virtual bool stepUp() { return false; }
    virtual bool stepDown() { return false; }
    /// Takes the keyboard focus; the element that had it is left first.
    bool takeFocus();
    /// Loses the focus, whether it had it or not.
    bool leave();

    /// What happens when the focus goes.
    std::function<void()> onLeave;

    /// A view redraws the whole element from this.
    Signal<> changed;

  protected:
    /// Runs a gesture's action, and tells the desk's watchers of it, if a user could make the gesture now.
    bool act(const Gesture& gesture, const std::function<void()>& action);
    /// The same without the question whether he could.
    void carryOut(Gesture gesture, const std::function<void()>& action);

  private:
    Form& owner;
    std::string elementName;
    std::string captionText;
    std::string tipText;
    std::string hintText;
    std::string shortcutText;
    std::optional<Colour> backgroundColour;
    Element* containerElement = nullptr;
    bool isVisible = true;
    bool isEnabled = true;
};

} // namespace zor
