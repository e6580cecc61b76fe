// SPDX-License-Identifier: MIT
#pragma once

#include "elements/gesture.h"
#include "elements/signal.h"

#include <functional>
#include <string_view>
#include <vector>

namespace zor {

class EventLoop;
class Form;

/// All windows of the program, open or not. Views and transcripts find a window here by its name. Owned by
/// main, older than every form.
class Desk {
  public:
    explicit Desk(EventLoop& eventLoop)
        : ownLoop(eventLoop) {}
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    [[nodiscard]] EventLoop& loop() const { return ownLoop; }

    /// The form of that name: the open one, else the youngest that is not closed; nullptr if there is none.
    [[nodiscard]] Form* find(std::string_view formName) const;
    [[nodiscard]] const std::vector<Form*>& forms() const { return members; }
    /// The youngest modal form that is open, or nullptr.
    [[nodiscard]] Form* modalForm() const;

    /// The window that the user works in: the one of those inside the main window that came to the front
    /// last. nullptr if none is open.
    [[nodiscard]] Form* front() const;

    /// A form is shown; the first time a view makes its window.
    Signal<Form&> opened;
    /// A form is being destroyed; a view lets go of it.
    Signal<Form&> removed;

    /// A user's gesture was accepted and is about to run; told inside its action.
    Signal<const Gesture&> gestureBegins;
    /// It has run, the waits of its action included, or an error or a drop ended it. Told inside its action,
    /// so that the window and the element are there yet, closed or not.
    Signal<const Gesture&> gestureEnded;
    /// A gesture runs.
    [[nodiscard]] bool inGesture() const { return !running.empty(); }

  private:
    friend class Element;
    friend class Form;
    /// Runs a gesture that the user's door has accepted.
    void carryOut(Gesture gesture, const std::function<void()>& action);
    void add(Form& form);
    void remove(Form& form);
    void bringToFront(Form& form);
    /// It left the screen; the window behind it comes to the front.
    void leaveFront(Form& form);

    EventLoop& ownLoop;
    std::vector<Form*> members;
    /// The open windows inside the main window, the front one last.
    std::vector<Form*> stacked;
    /// How deep the loop waited as each gesture that runs began, the outermost first.
    std::vector<int> running;
};

} // namespace zor
