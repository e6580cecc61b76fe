// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/kept_text.h"
#include "elements/label.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "platform/event_loop.h"
#include "utilities/script_echo.h"
#include "utilities/typed_lines.h"

#include <string>
#include <vector>

namespace zor {

/// A raw window on the board's line: what is typed is sent at Enter, what the board sends is shown; under it
/// an editor whose whole text is sent in one go.
class Terminal : public Form {
  public:
    explicit Terminal(Bench& ownBench);
    ~Terminal() override;

    /// Takes the keys of the line being typed; asked for it, it fetches an earlier one.
    KeptText Text1;
    Button Clear;
    /// Keeps what the window shows in a file, the script's lines between their answers.
    Button SaveLog;
    /// Says so when the oldest text is gone.
    Label Kept;
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
    void fetchTyped(int step);
    /// What was typed since the last Enter.
    [[nodiscard]] std::string typedLine() const;
    void CommandSendTimer_Timer();
    void En_ScriptWindow_Click();
    void LoadScript_Click();
    void SaveScript_Click();
    void SendScript_Click();
    void SaveLog_Click();
    void send(const std::string& text);

    Bench& bench;
    Timer CommandSendTimer;
    ScriptEcho echo;
    TypedLines typed;
    /// The program types a fetched line.
    bool fetching = false;
    std::vector<Subscription> subscriptions;
};

} // namespace zor
