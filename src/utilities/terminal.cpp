// SPDX-License-Identifier: MIT
#include "utilities/terminal.h"

#include "host/files.h"
#include "link/connect.h"
#include "link/file_dialog.h"
#include "support/lines.h"

#include <optional>
#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds sendDelay(100);
/// What the script group adds to the window's height, in twips.
constexpr Twips scriptHeight = 2200;
constexpr const char* firstScript = "terminal-script.txt";

FileRequest textDialog(FileRequest::Mode mode, const std::string& title) {
    return {.mode = mode,
            .title = title,
            .folder = {},
            .startName = "*.txt",
            .filter = "Text files (*.txt) | *.txt |All files (*.*)| *.*",
            .defaultExtension = "txt"};
}

} // namespace

Terminal::Terminal(Bench& ownBench)
    : Form(ownBench.desk, "Terminal", "Terminal")
    , Text1(*this, "Text1")
    , Clear(*this, "Clear", "Clear")
    , SaveLog(*this, "SaveLog", "Save log...")
    , Kept(*this, "Kept")
    , En_ScriptWindow(*this, "En_ScriptWindow", "Show script editor")
    , ScriptFrame(*this, "ScriptFrame")
    , Label1(*this, "Label1", "Script window")
    , Script(*this, "Script")
    , LoadScript(*this, "LoadScript", "Load")
    , SaveScript(*this, "SaveScript", "Save")
    , SendScript(*this, "SendScript", "Send")
    , bench(ownBench)
    , CommandSendTimer(ownBench.platform.loop, [this] { CommandSendTimer_Timer(); })
    , echo(Text1) {
    setExtent({5400, 9000});
    CommandSendTimer.setInterval(sendDelay);
    Script.setMultiLine(true);
    for (Element* element :
         {static_cast<Element*>(&Label1), static_cast<Element*>(&Script), static_cast<Element*>(&LoadScript),
          static_cast<Element*>(&SaveScript), static_cast<Element*>(&SendScript)}) {
        element->setContainer(&ScriptFrame);
    }
    ScriptFrame.setVisible(false);
    Text1.setTip("Type a command; Enter sends it, Up and Down fetch earlier ones");
    SaveLog.setTip("Keeps the text in a file, the script's lines between their answers");

    Text1.onKey = [this](char key) { Text1_KeyPress(key); };
    Text1.onRecall = [this](int step) { fetchTyped(step); };
    Clear.onClick = [this] {
        Text1.clear();
        Kept.setCaption("");
    };
    SaveLog.onClick = [this] { SaveLog_Click(); };
    En_ScriptWindow.onChange = [this] { En_ScriptWindow_Click(); };
    LoadScript.onClick = [this] { LoadScript_Click(); };
    SaveScript.onClick = [this] { SaveScript_Click(); };
    SendScript.onClick = [this] { SendScript_Click(); };

    subscriptions.push_back(Text1.shortened.subscribe([this] { Kept.setCaption(Text1.droppedNote()); }));
    subscriptions.push_back(bench.connect->portClosed.subscribe([this] { echo.forget(); }));
    bench.setMirror(&WindowSwitches::Terminalon, &Text1);
    bench.windows.Terminalon = true;
}

Terminal::~Terminal() {
    // The next terminal may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void Terminal::unload() {
    CommandSendTimer.stop();
    subscriptions.clear();
    bench.windows.Terminalon = false;
    bench.setMirror(&WindowSwitches::Terminalon, nullptr);
}

std::string Terminal::typedLine() const {
    const std::string& buffer = bench.link.Buf1;
    std::size_t end = buffer.rfind('\r');
    return end == std::string::npos ? buffer : buffer.substr(end + 1);
}

void Terminal::fetchTyped(int step) {
    std::string current = typedLine();
    std::optional<std::string> wanted = typed.walk(step, current);
    if (!wanted) {
        return;
    }
    // By the keys that a user would press, so that the window and the line cannot part.
    fetching = true;
    for (std::size_t count = current.size(); count > 0; --count) {
        Text1.press('\b');
    }
    for (char key : *wanted) {
        Text1.press(key);
    }
    fetching = false;
}

void Terminal::Text1_KeyPress(char key) {
    if (key == '\r') {
        typed.add(typedLine());
    } else if (!fetching) {
        typed.endWalk();
    }
    if (key == '\b') {
        if (!bench.link.Buf1.empty()) {
            bench.link.Buf1.pop_back();
        }
        return;
    }
    bench.link.Buf1 += key;
    if (key != '\r') {
        return;
    }
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, Loadboard not connected!");
    } else {
        // The timer takes the send, and its wait, out of the key event.
        CommandSendTimer.start();
    }
}

void Terminal::CommandSendTimer_Timer() {
    CommandSendTimer.stop();
    // What is typed while the send waits begins the next line.
    std::string line = std::exchange(bench.link.Buf1, {});
    if (!line.empty()) {
        echo.sentTyped();
        send(line);
    }
}

void Terminal::En_ScriptWindow_Click() {
    bool shown = En_ScriptWindow.ticked();
    ScriptFrame.setVisible(shown);
    setExtent({extent().height + (shown ? scriptHeight : -scriptHeight), extent().width});
}

void Terminal::LoadScript_Click() {
    try {
        loadChosen(bench, textDialog(FileRequest::Mode::Load, "Load Script File"), firstScript,
                   [this](const FileChoice& choice) {
                       if (choice.readOnly) {
                           throw ToolError(unsupported, "Incorrect extension");
                       }
                       Script.setText(withLineEnds(readFile(choice.name)));
                       return true;
                   });
    } catch (const ToolError& error) {
        bench.tellFileError(error, "File open error");
    }
}

void Terminal::SaveScript_Click() {
    saveByDialog(bench, textDialog(FileRequest::Mode::Save, "Save Script File"), firstScript,
                 [this](const std::string&) { return Script.text(); });
}

void Terminal::SendScript_Click() {
    if (!bench.connect->isOpen()) {
        bench.warn("Commport not available, please connect. Script was not sent.");
        return;
    }
    // All lines go at once; the wait ends with the first prompt.
    std::string script = Script.text();
    echo.sent(script);
    send(script);
}

void Terminal::send(const std::string& text) {
    Exchange result = bench.connect->Send_To_LoadBoard(text);
    if (result.outcome == Exchange::Outcome::TimedOut) {
        echo.forget();
    }
}

void Terminal::SaveLog_Click() {
    saveByDialog(bench, textDialog(FileRequest::Mode::Save, "Save Terminal Log"), "terminal-log.txt",
                 [this](const std::string&) { return Text1.withRemarks(); });
}

} // namespace zor
