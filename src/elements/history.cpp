// SPDX-License-Identifier: MIT
#include "elements/history.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "elements/step_name.h"
#include "elements/text_field.h"
#include "support/marked.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

std::uint64_t nextNumber() {
    static std::uint64_t last = 0;
    return ++last;
}

} // namespace

History::History(Form& historysForm, Undoable& formsRules)
    : ownForm(historysForm)
    , rules(formsRules)
    , parts(rules.keptParts()) {
    const std::vector<Element*>& all = ownForm.elements();
    elements.reserve(all.size());
    for (Element* element : all) {
        Aspects aspects = rules.keptAspects(*element);
        if (aspects != keepsNothing) {
            elements.push_back({element, aspects, rules.isSetting(*element), false, {}, {}});
        }
    }
    for (std::size_t place = 0; place < elements.size(); ++place) {
        elements[place].hearing = elements[place].element->changed.subscribe([this, place] { touch(place); });
    }
    values.resize(parts.size());
    lookAnew();
    Desk& desk = ownForm.desk();
    gestures.push_back(
        desk.gestureBegins.subscribe([this](const Gesture& gesture) { gestureBegins(gesture); }));
    gestures.push_back(
        desk.gestureEnded.subscribe([this](const Gesture& gesture) { gestureEnded(gesture); }));
}

History::~History() = default;

History* History::of(Form* form) {
    auto* undoable = dynamic_cast<Undoable*>(form);
    return undoable == nullptr ? nullptr : undoable->history();
}

std::vector<std::string> History::names() const {
    std::vector<std::string> all;
    all.reserve(steps.size());
    for (const Step& step : steps) {
        all.push_back(step.name);
    }
    return all;
}

void History::lookAnew() {
    for (Kept& kept : elements) {
        kept.state = rules.takeElement(*kept.element, kept.aspects);
        kept.touched = false;
    }
    touched.clear();
    for (std::size_t place = 0; place < parts.size(); ++place) {
        values[place] = parts[place].take();
    }
    marks = rules.takeMarks();
}

void History::forget() {
    lookAnew();
    steps.clear();
    done = 0;
    weight = 0;
    changed.emit();
}

void History::touch(std::size_t place) {
    if (!std::exchange(elements[place].touched, true)) {
        touched.push_back(place);
    }
}

bool History::settingTouched() const {
    return std::any_of(touched.begin(), touched.end(),
                       [this](std::size_t place) { return elements[place].setting; });
}

bool History::settingsDiffer() const {
    return std::any_of(touched.begin(), touched.end(), [this](std::size_t place) {
        const Kept& kept = elements[place];
        const auto* field = dynamic_cast<const TextField*>(kept.element);
        if (kept.setting && field != nullptr && field->typedIn()) {
            // Long texts are not compared at each key.
            return true;
        }
        return kept.setting && rules.takeElement(*kept.element, kept.aspects) != kept.state;
    });
}

void History::gestureBegins(const Gesture& gesture) {
    if (!gesture.byUser) {
        return;
    }
    // What the gesture around has done so far comes before what this one does.
    if (!touched.empty() && !beingTyped(gesture)) {
        record(running.empty() ? nullptr : running.back());
    }
    if (running.empty()) {
        for (std::size_t place = 0; place < parts.size(); ++place) {
            if (parts[place].shared) {
                values[place] = parts[place].take();
            }
        }
    }
    running.push_back(&gesture);
}

void History::gestureEnded(const Gesture& gesture) {
    if (!gesture.byUser) {
        return;
    }
    auto own = std::find(running.begin(), running.end(), &gesture);
    if (own != running.end()) {
        running.erase(own);
    }
    if (!beingTyped(gesture)) {
        record(&gesture);
    }
}

bool History::beingTyped(const Gesture& gesture) const {
    if (gesture.form != &ownForm) {
        return false;
    }
    const auto* field = dynamic_cast<const TextField*>(gesture.element);
    switch (gesture.kind) {
    case GestureKind::TakeFocus:
    case GestureKind::Activate:
    case GestureKind::Move:
    case GestureKind::Resize:
        // A look elsewhere ends no typing by itself; the leaving of the field does.
        return std::any_of(touched.begin(), touched.end(), [this](std::size_t place) {
            const auto* typed = dynamic_cast<const TextField*>(elements[place].element);
            return typed != nullptr && typed->typedIn();
        });
    default:
        return field != nullptr && field->typedIn();
    }
}

/// What is as it was counts as untouched again.
History::Step History::differences() {
    Step step;
    std::erase_if(touched, [&](std::size_t place) {
        Kept& kept = elements[place];
        ElementState now = rules.takeElement(*kept.element, kept.aspects);
        kept.touched = now != kept.state;
        if (kept.touched) {
            step.elements.push_back({place, kept.state, std::move(now)});
        }
        return !kept.touched;
    });
    std::sort(step.elements.begin(), step.elements.end(),
              [](const ElementChange& one, const ElementChange& other) { return one.place < other.place; });
    for (std::size_t place = 0; place < parts.size(); ++place) {
        KeptValue now = parts[place].take();
        if (now != values[place]) {
            step.parts.push_back({place, values[place], std::move(now)});
        }
    }
    return step;
}

/// The form as the step leaves it is what the next one begins with.
void History::take(Step& step) {
    for (const ElementChange& change : step.elements) {
        elements[change.place].state = change.after;
    }
    for (const PartChange& change : step.parts) {
        values[change.place] = change.after;
    }
    for (std::size_t place : touched) {
        elements[place].touched = false;
    }
    touched.clear();
    step.marksBefore = std::exchange(marks, rules.takeMarks());
    step.marksAfter = marks;
}

bool History::changesSetting(const Step& step) const {
    return std::any_of(step.elements.begin(), step.elements.end(),
                       [this](const ElementChange& change) { return elements[change.place].setting; });
}

void History::record(const Gesture* gesture) {
    std::string action = rules.actionName();
    // What only follows and shows waits for the setting that it goes with.
    if (going || !settingTouched()) {
        return;
    }
    Step step = differences();
    if (!changesSetting(step)) {
        return;
    }
    take(step);
    while (steps.size() > done) {
        weight -= steps.back().weight;
        steps.pop_back();
    }
    if (!joins(step, gesture)) {
        step.name = action.empty() ? nameOf(step, gesture) : std::move(action);
        push(std::move(step));
    }
    done = steps.size();
    changed.emit();
}

void History::push(Step step) {
    step.weight = sizeof(Step) + step.elements.size() * sizeof(ElementChange);
    for (const ElementChange& change : step.elements) {
        for (const ElementState* state : {&change.before, &change.after}) {
            step.weight +=
                state->text.size() + state->tip.size() + state->entries.size() * sizeof(std::string);
        }
    }
    weight += step.weight;
    step.number = nextNumber();
    steps.push_back(std::move(step));
    while (steps.size() > most || (weight > heaviest && steps.size() > 1)) {
        weight -= steps.front().weight;
        steps.pop_front();
    }
}

bool History::joins(Step& step, const Gesture* gesture) {
    const Element* source = gesture == nullptr ? nullptr : gesture->element;
    bool slides = gesture != nullptr && gesture->kind == GestureKind::Slide;
    step.grows = slides ? source : nullptr;
    if (step.grows == nullptr || steps.empty() || steps.back().grows != step.grows) {
        return false;
    }
    Step& last = steps.back();
    for (ElementChange& change : step.elements) {
        auto same = std::find_if(last.elements.begin(), last.elements.end(),
                                 [&](const ElementChange& other) { return other.place == change.place; });
        if (same == last.elements.end()) {
            last.elements.push_back(std::move(change));
        } else {
            same->after = std::move(change.after);
        }
    }
    for (PartChange& change : step.parts) {
        auto same = std::find_if(last.parts.begin(), last.parts.end(),
                                 [&](const PartChange& other) { return other.place == change.place; });
        if (same == last.parts.end()) {
            last.parts.push_back(std::move(change));
        } else {
            same->after = std::move(change.after);
        }
    }
    last.marksAfter = std::move(step.marksAfter);
    last.name = nameOf(last, gesture);
    last.number = nextNumber();
    return true;
}

std::string History::nameOf(const Step& step, const Gesture* gesture) const {
    std::vector<SettingChange> changes;
    for (const ElementChange& change : step.elements) {
        const Kept& kept = elements[change.place];
        if (kept.setting) {
            changes.push_back({*kept.element, change.before, change.after});
        }
    }
    return stepName(rules, changes, gesture);
}

void History::putFollowersBack() {
    std::vector<std::size_t> now = std::exchange(touched, {});
    for (std::size_t place : now) {
        Kept& kept = elements[place];
        rules.putElement(*kept.element, kept.state, kept.aspects);
        kept.touched = false;
    }
    for (std::size_t place : std::exchange(touched, {})) {
        elements[place].touched = false;
    }
}

void History::put(const Step& step, Way way) {
    bool back = way == Way::Back;
    for (const PartChange& change : step.parts) {
        parts[change.place].put(back ? change.before : change.after);
        values[change.place] = back ? change.before : change.after;
    }
    rules.partsPutBack();
    std::vector<Element*> changedElements;
    for (const ElementChange& change : step.elements) {
        Kept& kept = elements[change.place];
        kept.state = back ? change.before : change.after;
        rules.putElement(*kept.element, kept.state, kept.aspects);
        changedElements.push_back(kept.element);
    }
    rules.elementsPutBack(changedElements);
    rules.putMarks(back ? step.marksBefore : step.marksAfter);
    marks = rules.takeMarks();
    for (std::size_t place : std::exchange(touched, {})) {
        elements[place].touched = false;
    }
}

std::string History::undo() {
    // Begun typing is a step of its own, so that it can be done again.
    record(nullptr);
    if (done == 0) {
        return {};
    }
    {
        Marked now(going);
        putFollowersBack();
        put(steps[done - 1], Way::Back);
    }
    --done;
    steps[done].grows = nullptr;
    if (done > 0) {
        steps[done - 1].grows = nullptr;
    }
    changed.emit();
    return steps[done].name;
}

std::string History::redo() {
    record(nullptr);
    if (done == steps.size()) {
        return {};
    }
    {
        Marked now(going);
        putFollowersBack();
        put(steps[done], Way::Forth);
    }
    ++done;
    changed.emit();
    return steps[done - 1].name;
}

void History::goTo(std::size_t position) {
    while (done > position && !undo().empty()) {
    }
    while (done < position && !redo().empty()) {
    }
}

} // namespace zor
