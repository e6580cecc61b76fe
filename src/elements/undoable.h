// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element_state.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zor {

class Element;
class Form;
class History;

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

} // namespace zor
