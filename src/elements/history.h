// SPDX-License-Identifier: MIT
#pragma once

#include "elements/gesture.h"
#include "elements/signal.h"
#include "elements/undoable.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace zor {

class Desk;

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

    [[nodiscard]] bool settingTouched() const;
    [[nodiscard]] bool settingsDiffer() const;
    [[nodiscard]] bool beingTyped(const Gesture& gesture) const;
    void touch(std::size_t place);
    void record(const Gesture* gesture);
    [[nodiscard]] Step differences();
    [[nodiscard]] bool changesSetting(const Step& step) const;
    void push(Step step);
    void take(Step& step);
    bool joins(Step& step, const Gesture* gesture);
    [[nodiscard]] std::string nameOf(const Step& step, const Gesture* gesture) const;
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
