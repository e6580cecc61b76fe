// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element_state.h"
#include "elements/gesture.h"
#include "elements/signal.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zor {

class Desk;
class Form;

/// What a form has besides its elements and what bears on them.
using KeptValue = std::variant<std::int32_t, float, std::string>;

/// A value of that kind: where it is taken from and put back to.
struct KeptPart {
    std::function<KeptValue()> take;
    std::function<void(const KeptValue&)> put;
    /// Others change it as well; what they make of it is no part of the next step.
    bool shared = false;
};
using KeptParts = std::vector<KeptPart>;

/// A member that is kept as it is.
template <class Value>
[[nodiscard]] KeptPart keptPart(Value& value) {
    return {[&value] { return KeptValue(value); },
            [&value](const KeptValue& kept) { value = std::get<Value>(kept); }};
}

class History;

/// A form whose settings can be undone says here what they are.
class Undoable {
  public:
    Undoable();
    Undoable(const Undoable&) = delete;
    Undoable& operator=(const Undoable&) = delete;
    virtual ~Undoable();

    /// nullptr as long as it has none.
    [[nodiscard]] History* history() const { return ownHistory.get(); }

    /// What of an element goes with the settings; keepsNothing for what shows the world.
    [[nodiscard]] virtual Aspects keptAspects(const Element& element) const = 0;
    /// A change of it makes a step; what only follows goes along.
    [[nodiscard]] virtual bool isSetting(const Element& element) const = 0;
    [[nodiscard]] virtual KeptParts keptParts() { return {}; }
    /// What a user has set who changed the element.
    [[nodiscard]] virtual std::string settingCaption(const Element& element) const = 0;
    /// A name for the step that did more than change a setting; empty for one that did not.
    [[nodiscard]] virtual std::string actionName() { return {}; }
    /// The name of a step that changed this element so; empty for the element's caption and its values.
    [[nodiscard]] virtual std::string changeName(const Element& /*element*/, const ElementState& /*before*/,
                                                 const ElementState& /*after*/) const {
        return {};
    }
    /// A button's caption says more of what it did than the setting that it changed.
    [[nodiscard]] virtual bool buttonsNameSteps() const { return false; }

    [[nodiscard]] virtual ElementState takeElement(const Element& element, Aspects aspects) const {
        return stateOf(element, aspects);
    }
    virtual void putElement(Element& element, const ElementState& state, Aspects aspects) {
        putState(element, state, aspects);
    }
    /// The values are back, the elements follow.
    virtual void partsPutBack() {}
    /// These elements are back too.
    virtual void elementsPutBack(const std::vector<Element*>& /*elements*/) {}

    /// Marks that hold of the settings and of the world beside them; what they say is the form's own matter.
    using Marks = std::vector<std::uint64_t>;
    [[nodiscard]] virtual Marks takeMarks() const { return {}; }
    virtual void putMarks(const Marks& /*marks*/) {}

  protected:
    /// From now on steps are kept; the form as it is now is their beginning.
    void beginHistory(Form& form);

  private:
    std::unique_ptr<History> ownHistory;
};

/// The steps in which a user has set a form, to go back and forth in. A gesture that changes a setting is a
/// step; so is a change that comes from elsewhere (the device was read). Typing in a field belongs to the
/// step that commits it, a slider's way to its end.
///
/// Going back puts the elements and values back as they were, without running an action: nothing is sent,
/// asked or loaded by it. It costs what the step has changed.
class History {
  public:
    /// As many steps are kept; a step is a few hundred bytes.
    static constexpr std::size_t most = 12000;
    /// Long texts weigh more, and fewer of them are kept; in bytes.
    static constexpr std::size_t heaviest = 64U << 20;

    /// The form stands as it is now at its beginning. Not older than the form's elements.
    History(Form& ownForm, Undoable& formsRules);
    History(const History&) = delete;
    History& operator=(const History&) = delete;
    ~History();

    /// The history of a form; nullptr if it has none.
    [[nodiscard]] static History* of(Form* form);

    [[nodiscard]] Form& form() const { return ownForm; }
    /// "Centre 315 -> 868.3", the oldest step first.
    [[nodiscard]] std::vector<std::string> names() const;
    /// How many of them are in force; those behind can be done again.
    [[nodiscard]] std::size_t position() const { return done; }
    [[nodiscard]] std::size_t count() const { return steps.size(); }
    [[nodiscard]] const std::string& name(std::size_t step) const { return steps[step].name; }
    /// Greater than that of any step made before, in any form; a step that grows gets a new one.
    [[nodiscard]] std::uint64_t number(std::size_t step) const { return steps[step].number; }
    /// There is something to go back from, begun typing counted.
    [[nodiscard]] bool canUndo() const { return done > 0 || settingsDiffer(); }
    [[nodiscard]] bool canRedo() const { return done < steps.size() && !settingsDiffer(); }

    /// Takes the last step back, or what is being typed. @return its name; empty if there is none
    std::string undo();
    std::string redo();
    /// Back or forth until so many are in force.
    void goTo(std::size_t position);
    /// What has changed until now is a step, whatever brought it.
    void settle() { record(nullptr); }
    /// Begins anew: the form as it stands now is the beginning.
    void forget();

    /// Steps came, went, or were gone over.
    Signal<> changed;

    // What the desk tells; tests may.
    void gestureBegins(const Gesture& gesture);
    void gestureEnded(const Gesture& gesture);

  private:
    struct ElementChange {
        std::size_t place = 0;
        ElementState before;
        ElementState after;
    };
    struct PartChange {
        std::size_t place = 0;
        KeptValue before;
        KeptValue after;
    };
    struct Step {
        std::string name;
        std::vector<ElementChange> elements;
        std::vector<PartChange> parts;
        Undoable::Marks marksBefore;
        Undoable::Marks marksAfter;
        /// The slider or field whose further changes join it.
        const Element* grows = nullptr;
        std::uint64_t number = 0;
        /// About so many bytes.
        std::size_t weight = 0;
    };
    /// One element of the form that goes with its settings.
    struct Kept {
        Element* element = nullptr;
        Aspects aspects = keepsNothing;
        bool setting = false;
        bool touched = false;
        ElementState state;
        Subscription hearing;
    };
    enum class Way { Back, Forth };

    [[nodiscard]] bool settingsDiffer() const;
    [[nodiscard]] bool beingTyped(const Gesture& gesture) const;
    void touch(std::size_t place);
    void record(const Gesture* gesture);
    [[nodiscard]] Step differences() const;
    [[nodiscard]] bool changesSetting(const Step& step) const;
    void push(Step step);
    void take(Step& step);
    bool joins(Step& step, const Gesture* gesture);
    [[nodiscard]] std::string stepName(const Step& step, const Gesture* gesture);
    [[nodiscard]] std::string changeName(const ElementChange& change, const Step& step) const;
    void putFollowersBack();
    void put(const Step& step, Way way);
    void lookAnew();

    Form& ownForm;
    Undoable& rules;
    std::vector<Kept> elements;
    std::vector<std::size_t> touched;
    KeptParts parts;
    std::vector<KeptValue> values;
    Undoable::Marks marks;
    std::deque<Step> steps;
    std::size_t done = 0;
    std::size_t weight = 0;
    /// The outermost gesture that runs, for the steps that are closed inside it.
    std::vector<const Gesture*> running;
    bool going = false;
    std::vector<Subscription> gestures;
};

} // namespace zor
