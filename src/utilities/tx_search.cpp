// SPDX-License-Identifier: MIT
#include "utilities/tx_search.h"

namespace zor {

TxSearch::TxSearch(Bench& ownBench)
    : Form(ownBench.desk, "frm_TxSearch", "Transmitter Auto Search")
    , PB_START(*this, "PB_START", "Start")
    , DataRate(*this, "DataRate")
    , DRSSI(*this, "DRSSI")
    , FreqBand(*this, "FreqBand", "", TextField::Access::ReadOnly)
    , FR_Searching(*this, "FR_Searching", "Searching")
    , AFC_Value(*this, "AFC_Value", "", TextField::Access::ReadOnly)
    , Freq_Value(*this, "Freq_Value", "", TextField::Access::ReadOnly) {
    setExtent({3600, 4800});
    DataRate.setCaption("Data Rate:");
    DRSSI.setCaption("DRSSI limit:");
    FreqBand.setCaption("Frequency Band:");
    AFC_Value.setContainer(&FR_Searching);
    Freq_Value.setContainer(&FR_Searching);
    PB_START.setTip("This version has no search");
    PB_START.setEnabled(false);
}

} // namespace zor
