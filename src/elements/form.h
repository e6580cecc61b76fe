// SPDX-License-Identifier: MIT
#pragma once

#include "elements/gesture.h"
#include "elements/signal.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zor {

class Desk;
class Element;
class EventLoop;

/// A length on the desk, in twips: 1/1440 inch, 15 to a pixel at 96 dots per inch.
using Twips = float;
inline constexpr Twips twipsPerPixel = 15;

struct Place {
    Twips top = 0;
    Twips left = 0;
    friend bool operator==(const Place&, const Place&) = default;
};

struct Extent {
    Twips height = 0;
    Twips width = 0;
    friend bool operator==(const Extent&, const Extent&) = default;
};

/// A window: a title, a place and size, and its named elements. It is created closed, fills itself, and is
/// shown.
///
/// Its owner keeps it and hears `closed`; since an action of the form may still be waiting for the board, the
/// owner hands it to EventLoop::discardLater rather than destroying it.
class Form {
  public:
    /// Main is the frame around all windows; Modal windows keep the user from the others.
    enum class Kind { Window, Modal, Main };
    /// Whether the form's size is the window's, or a measure of the form's own that the product keeps (a
    /// panel's two heights) while the window on the screen is as large as what stands in it.
    enum class Sizing { OfWindow, ByContent };

    Form(Desk& ownDesk, std::string name, std::string title, Kind kind = Kind::Window);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    [[nodiscard]] const std::string& name() const { return formName; }
    [[nodiscard]] const std::string& title() const { return titleText; }
    void setTitle(std::string title);
    /// What the window holds (the file that it was loaded from), shown in its title bar behind the title.
    [[nodiscard]] const std::string& document() const { return documentText; }
    void setDocument(std::string text);
    /// The top left corner as long as nobody has placed it.
    [[nodiscard]] Place place() const { return ownPlace.value_or(Place{}); }
    /// The program, a workspace or the user has put it somewhere; else the desk may.
    [[nodiscard]] bool isPlaced() const { return ownPlace.has_value(); }
    void setPlace(Place place);
    [[nodiscard]] Extent extent() const { return ownExtent; }
    void setExtent(Extent extent);
    /// The size that a user once gave it: to be taken as it is, also where the content would like more.
    void restoreExtent(Extent extent);
    [[nodiscard]] bool hasUsersExtent() const { return extentIsUsers; }
    [[nodiscard]] Kind kind() const { return formKind; }
    [[nodiscard]] Sizing sizing() const { return formSizing; }
    [[nodiscard]] Desk& desk() const { return ownDesk; }

    [[nodiscard]] bool isOpen() const { return open; }
    /// Shows it; a form that is open already comes to the front.
    void show();
    /// Takes it off the screen; it keeps everything.
    void hide();
    /// Ends it: the unload actions run once, it is hidden, and `closed` tells the owner. Closing a form that
    /// is hidden unloads it just the same; closing it again does nothing.
    void close();
    [[nodiscard]] bool isClosed() const { return hasClosed; }

    /// A user may act on it: open and not behind a modal form.
    [[nodiscard]] bool acceptsUser() const;

    /// It is the window in front of the others.
    [[nodiscard]] bool inFront() const;

    // The user's door to the window itself; false if refused.
    /// Brings it to the front, as any click into it does.
    bool userActivate();
    bool userClose();
    bool userClick();
    bool userDoubleClick();
    /// The second half of a double click whose first click was told when it came.
    bool userSecondClick();
    bool userMove(Place place);
    bool userResize(Extent extent);

    /// nullptr if the form has no such element.
    [[nodiscard]] Element* find(std::string_view elementName) const;
    /// In the order of their creation.
    [[nodiscard]] const std::vector<Element*>& elements() const { return members; }

    [[nodiscard]] Element* focusedElement() const { return focus; }
    /// Moves the focus; the element that had it is left first. nullptr takes it away.
    void setFocus(Element* element);

    /// Runs an action as EventLoop::perform does.
    void perform(const std::function<void()>& action) const;
    [[nodiscard]] EventLoop& loop() const;

    /// A click and a double click on the window's empty area.
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;

    /// Title, place, size, open state or focus changed.
    Signal<> changed;
    /// Asked to the front while open.
    Signal<> raised;
    Signal<> closed;
    /// It came to the front, also by being shown. Modal windows, boxes and the main window's bars leave the
    /// front where it is.
    Signal<> activated;
    /// Another window came to the front; told before that one hears `activated`. A window that closes or
    /// hides is not told.
    Signal<> deactivated;

  protected:
    void setSizing(Sizing sizing) { formSizing = sizing; }
    /// What closing does before the form goes.
    virtual void unload() {}
    /// What the window's close button does; a window that is kept for another only hides.
    virtual void closeButton() { close(); }

  private:
    friend class Element;
    bool act(Gesture gesture, const std::function<void()>& action);
    void add(Element& element);
    void remove(const Element& element);

    Desk& ownDesk;
    std::string formName;
    std::string titleText;
    std::string documentText;
    Kind formKind;
    Sizing formSizing = Sizing::OfWindow;
    std::optional<Place> ownPlace;
    Extent ownExtent;
    bool extentIsUsers = false;
    std::vector<Element*> members;
    std::unordered_map<std::string_view, Element*> byName;
    Element* focus = nullptr;
    bool open = false;
    bool hasClosed = false;
};

} // namespace zor
