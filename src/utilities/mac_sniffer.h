// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/kept_text.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"

namespace zor {

/// Shows what the packet monitor prints. How its packets are built can be stated, for a decoder to come;
/// nothing of it goes to the board.
class MacSniffer : public Form {
  public:
    explicit MacSniffer(Bench& ownBench);
    ~MacSniffer() override;

    /// Received text: it takes no typing.
    KeptText Incoming;
    Button Clear;
    Button Save;
    /// Says so when the oldest text is gone.
    Label Kept;
    Frame FR_OPT;
    OptionGroup versions;
    Option OPT_Lite;
    Option OPT_Norm;
    Frame FR_Hopt;
    OptionGroup lengths;
    Option OPT_FixPlen;
    Option OPT_DPlen;
    Label LBL_Plen;
    /// Packet length in bytes.
    TextField TXT_Plen;
    TickBox CHK_CID;
    Frame FR_Addr_Setup;
    TickBox chk_Rar;
    OptionGroup addressings;
    Option OPT_Nw;
    Option OPT_Nrm;

  protected:
    void unload() override;

  private:
    void OPT_Lite_Click();
    void OPT_Norm_Click();
    void setFullVersion(bool enabled);
    void followLength();
    void Save_Click();

    Bench& bench;
    Subscription shortened;
};

} // namespace zor
