// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"
#include "elements/signal.h"

namespace zor {

class SPI;

/// What the editor says beside the value: what it is after a reset, and what the chip still has while the
/// value was not sent.
class EditorNotes {
  public:
    explicit EditorNotes(SPI& ownTool);

    /// "Default 80"
    Label DefaultNote;
    /// "not sent, the chip has 80"
    Label UnsentNote;

  private:
    void show();

    SPI& tool;
    Subscription value;
    Subscription address;
    Subscription stored;
    Subscription showsOthers;
};

} // namespace zor
