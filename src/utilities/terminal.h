// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/monitor.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"

namespace zor {

/// A raw window on the board's line: what is typed is sent at Enter, what the board sends is shown; under it
/// an editor whose whole text is sent in one go.
class Terminal : public Form {
  public:
    explicit Terminal(Bench& ownBench);
    ~Terminal() override;

    Monitor Text1;
    Button Clear;
    TickBox En_ScriptWindow;
    /// The script group, shown by En_ScriptWindow.
    Frame ScriptFrame;
    Label Label1;
    TextField Script;
    Button LoadScript;
    Button SaveScript;
    Button SendScript;

  protected:
    void unload() override;

  private:
    void Text1_KeyPress(char key);
    void CommandSendTimer_Timer();
    void En_ScriptWindow_Click();
    void LoadScript_Click();
    void SaveScript_Click();
    void SendScript_Click();
    [[nodiscard]] FileRequest scriptDialog(FileRequest::Mode mode, const std::string& title) const;

    Bench& bench;
    Timer CommandSendTimer;
};

} // namespace zor
