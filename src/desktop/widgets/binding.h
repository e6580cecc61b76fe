// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"
#include "elements/form.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <typeindex>
#include <typeinfo>
#include <utility>
#include <vector>

class QWidget;

namespace zor {

/// Ties one widget (or menu action) to one element, for as long as both live.
///
/// It gives the widget the element's name, shows and hides, enables and disables it with the element and its
/// containers, and calls `draw` whenever the element has changed. When the form goes, the binding lets go:
/// the widget may stay a while, showing what it last showed, and its gestures do nothing. A Binding belongs
/// to its widget; once the widget's own part has gone, in its base's destructor, nothing is drawn or told any
/// more: a widget that has the focus still loses it there. It is therefore made where the widget is whole, by
/// its maker or in the constructor of its own class, from which nothing derives.
class Binding : public QObject {
    Q_OBJECT

  public:
    Binding(Element& boundElement, QObject& boundWidget);

    /// The one that was made for this widget, or nullptr.
    [[nodiscard]] static Binding* of(const QObject* widget);

    /// nullptr once the form has gone, and while the widget goes.
    [[nodiscard]] Element* element() const { return isWhole() ? bound : nullptr; }
    [[nodiscard]] QWidget* widget() const;

    /// Adds what shows the element's own values, and shows them.
    void onDraw(std::function<void()> drawing);
    /// Shows everything anew; also what puts a widget back after a refused gesture.
    void redraw();
    /// What the widget tells now comes of its being redrawn, not of the user.
    [[nodiscard]] bool isDrawing() const { return drawing; }
    /// Hears a signal for as long as the element is bound and the widget whole.
    template <class... Args>
    void follow(Signal<Args...>& signal, std::type_identity_t<std::function<void(Args...)>> action) {
        subscriptions.push_back(signal.subscribe([this, heard = std::move(action)](Args... args) {
            if (isWhole()) {
                heard(args...);
            }
        }));
    }
    /// Runs a gesture, unless the element has gone, and redraws: the element may have refused or changed it.
    void gesture(const std::function<void()>& action);
    /// Forwards the keyboard focus: the element takes it, and is left when it goes elsewhere in the window.
    void followFocus();
    /// Another widget that is shown, hidden and greyed with this one: its caption, its unit.
    void addCompanion(QWidget& companion);

    /// Why the element is disabled, while it is, for who listens; empty for no reason of its own.
    void setReason(const QString& text);

    /// Whether the element's background is the widget's; it is unless told otherwise.
    void setBackgroundShown(bool shown);

    /// Whether the widget is shown and hidden with the element; a page of a tab strip is by the strip.
    void setVisibilityShown(bool shown) { visibilityIsShown = shown; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Until the widget's own part has gone: what is left of it then is of another type.
    [[nodiscard]] bool isWhole() const { return std::type_index(typeid(target)) == whole; }
    [[nodiscard]] bool isLive() const { return bound != nullptr && isWhole(); }
    void subscribe(Element& source);
    void letGo();
    void drawBy(const std::function<void()>& drawingAction);
    void showState();
    void showBackground();
    void clearBackground();

    Element* bound;
    QObject& target;
    std::type_index whole;
    std::vector<Subscription> subscriptions;
    std::vector<QPointer<QWidget>> companions;
    std::function<void()> draw;
    QString reason;
    std::optional<Colour> shownBackground;
    std::string shownShortcut;
    bool backgroundIsShown = true;
    bool visibilityIsShown = true;
    bool drawing = false;
};

/// The binding's element in its own kind: `Element` may be the base of many.
template <class Kind>
[[nodiscard]] Kind* elementOf(const Binding& binding) {
    return static_cast<Kind*>(binding.element());
}

} // namespace zor
