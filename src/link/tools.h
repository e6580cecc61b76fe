// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"

namespace zor {

class Form;

/// The windows around the chip panels, under their forms' names.
enum class Tool {
    frm_Splash,
    Help_R1,
    Terminal,
    frm_PowerSupply,
    eeprom,
    ECET,
    Frm_CmdSequence,
    frm_Link,
    frm_Link_RX,
    AmberV1rflink,
    AmberV1rflink_LB2,
    Frm_BerylRfLinkTest,
    OpalV2test,
    Frm_AmberTestFunctions,
    Frm_BerylTestFunctions,
    SPI,
    SPIsub2,
    Frm_GenHeader,
    FirmLoad,
    frm_VireoMacSniffer,
    frm_TxSearch,
    frm_WireLog,
    frm_Guide,
    frm_SetFrom,
    frm_Compare,
};

/// Opens and closes the tools for those who may not know them: panels, other tools, the link. One window a
/// tool.
class Tools {
  public:
    Tools() = default;
    Tools(const Tools&) = delete;
    Tools& operator=(const Tools&) = delete;
    virtual ~Tools() = default;

    /// This version has it.
    [[nodiscard]] virtual bool exists(Tool tool) const = 0;
    /// Shows it, made anew if there is none; an open one comes to the front. A tool that does not exist stays
    /// away.
    virtual void open(Tool tool) = 0;
    /// Closes it as its close button does, if there is one.
    virtual void close(Tool tool) = 0;
    /// Its window, made without being shown if there is none. Throws ToolError cannotCreate for a tool that
    /// does not exist.
    virtual Form& create(Tool tool) = 0;
    /// Its window, shown or not; nullptr if there is none.
    [[nodiscard]] virtual Form* find(Tool tool) const = 0;

    /// A tool's window was made anew; it may stay out of sight.
    Signal<Tool> made;
};

} // namespace zor
