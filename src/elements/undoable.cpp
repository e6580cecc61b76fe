// SPDX-License-Identifier: MIT
#include "elements/undoable.h"

#include "elements/history.h"

namespace zor {

Undoable::Undoable() = default;
Undoable::~Undoable() = default;

void Undoable::beginHistory(Form& form) {
    ownHistory = std::make_unique<History>(form, *this);
}

} // namespace zor
