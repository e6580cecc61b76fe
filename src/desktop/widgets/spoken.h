// SPDX-License-Identifier: MIT
// What a window says to who listens to it instead of looking at it. The toolkit's own widgets say what they
// are and hold; here is what it cannot know.
#pragma once

#include <QAccessible>
#include <QString>

#include <functional>

class QWidget;

namespace zor {

class Element;

/// Put beside QWidget by a widget that paints itself: what it is, and what is seen on it, in words.
class Spoken {
  public:
    Spoken() = default;
    Spoken(const Spoken&) = delete;
    Spoken& operator=(const Spoken&) = delete;
    virtual ~Spoken() = default;

    [[nodiscard]] virtual QAccessible::Role spokenRole() const = 0;
    /// What stands on it now: "lit", "dark".
    [[nodiscard]] virtual QString spokenValue() const { return {}; }
    /// It is one of two states, and in the second one now.
    [[nodiscard]] virtual bool spokenOn() const { return false; }
    /// A listener presses it; false if it is no button.
    virtual bool spokenPress() { return false; }
    [[nodiscard]] virtual bool canBePressed() const { return false; }
};

/// Lets the toolkit ask Spoken widgets. Called once a program; another call does nothing.
void speakOfOwnWidgets();

/// The value of a Spoken widget has changed.
void tellSpokenValue(QWidget& widget);
/// Says a text at once, wherever the listener is: a notice of the status line.
void announce(QWidget& widget, const QString& text);
/// Who says it in the place of the toolkit; an empty one gives it back.
void setAnnouncer(std::function<void(const QString& text)> announcer);

/// A name for an element that has no caption of its own on the screen, nor one beside it; empty for the
/// others.
[[nodiscard]] QString spokenName(const Element& element);

} // namespace zor
