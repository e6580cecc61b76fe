// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/text_field.h"
#include "link/bench.h"

namespace zor {

/// The settings and results of a search for transmitters. This version has no search behind them, so the
/// window stays a form and its button is disabled.
class TxSearch : public Form {
  public:
    explicit TxSearch(Bench& ownBench);

    Button PB_START;
    TextField DataRate;
    TextField DRSSI;
    TextField FreqBand;
    /// The results.
    Frame FR_Searching;
    TextField AFC_Value;
    TextField Freq_Value;
};

} // namespace zor
