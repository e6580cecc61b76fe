// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element_state.h"
#include "elements/undoable.h"

#include <string>
#include <utility>
#include <vector>

namespace zor {

class Form;

/// An undoable form's settings and all that follows from them at one moment, whole: what a History keeps the
/// differences of. Another form of the same kind can be brought to it.
class FormState {
  public:
    /// @param rules  the form's own
    FormState(const Form& form, Undoable& rules);

    /// Brings a form of the same kind to it. No action runs: nothing is sent, asked or loaded.
    void putTo(const Form& form, Undoable& rules) const;

  private:
    std::vector<std::pair<std::string, ElementState>> elements;
    std::vector<KeptValue> values;
};

} // namespace zor
