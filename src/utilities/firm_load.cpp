// SPDX-License-Identifier: MIT
#include "utilities/firm_load.h"

#include "host/files.h"
#include "link/connect.h"
#include "link/file_dialog.h"
#include "support/file_name.h"
#include "support/wording.h"

#include <cmath>
#include <utility>

namespace zor {

namespace {

constexpr std::chrono::milliseconds tickInterval(10);
constexpr int ticksOfPatience = 10;
constexpr char xoff = '\x13';
constexpr char xon = '\x11';
constexpr const char* hexPattern = "*.hex";
constexpr const char* commandSpeed = "19200,N,8,1";
constexpr const char* downloadSpeed = "57600,N,8,1";
constexpr const char* noPort = "Commport not available, Loadboard not connected!";
constexpr const char* openErrorTitle = "File open error";
constexpr const char* lineErrorTitle = "USB communication error";

ToolError emptyFileError() {
    return {emptyFile, "This is an empty file!"};
}

} // namespace

/// A choice of the speed group: what the loader is told and how the port is then set.
struct FirmLoad::Speed {
    Option FirmLoad::*option;
    const char* command;
    const char* format;
};

const FirmLoad::Speed FirmLoad::speedTable[] = {
    {&FirmLoad::SerSpd_192, "C192\r", "19200,N,8,1"},
    {&FirmLoad::SerSpd_384, "C384\r", "38400,N,8,1"},
    {&FirmLoad::SerSpd_576, "C576\r", "57600,N,8,1"},
};

FirmLoad::FirmLoad(Bench& ownBench)
    : Form(ownBench.desk, "FirmLoad", "Firmware Loader")
    , loadeefile(*this, "loadeefile", "Load HEX file")
    , FileInfo(*this, "FileInfo", "No file loaded")
    , Ser_Speed(*this, "Ser_Speed", "Select Baud Rate")
    , SerSpd_192(*this, speeds, "SerSpd_192", "19200 bps")
    , SerSpd_384(*this, speeds, "SerSpd_384", "38400 bps")
    , SerSpd_576(*this, speeds, "SerSpd_576", "57600 bps")
    , Prog(*this, "Prog", "Download")
    , StopButton(*this, "StopButton", "Stop")
    , state(*this, "state", "", TextField::Access::ReadOnly)
    , ProgressBar1(*this, "ProgressBar1", 0, 100, 0)
    , ProgressText(*this, "ProgressText")
    , Outcome(*this, "Outcome")
    , bench(ownBench)
    , Timer1(ownBench.platform.loop, [this] { Timer1_Timer(); }) {
    setExtent({4200, 7200});
    loadeefile.setTip("Choose the firmware file, in Intel hexadecimal form");
    Ser_Speed.setTip("Speed of the loader's command line; a download always runs at 57600 bps");
    Prog.setTip("Sends the loaded file to the board's loader, line by line");
    StopButton.setTip("Ends the download; the firmware on the board is then incomplete");
    state.setTip("Lines sent");
    SerSpd_192.putChosen();
    for (const Speed& speed : speedTable) {
        Option& option = this->*speed.option;
        option.setContainer(&Ser_Speed);
        option.onChoose = [this, &speed] { selectSpeed(speed); };
    }
    loadeefile.onClick = [this] { loadeefile_Click(); };
    Prog.onClick = [this] { Prog_Click(); };
    StopButton.onClick = [this] { StopButton_Click(); };
    // Who closes the port ends the download with it.
    portClosed = bench.connect->portClosed.subscribe([this] { abandon(); });
    bench.windows.FirmLoadOn = true;
}

FirmLoad::~FirmLoad() {
    // The next loader window may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void FirmLoad::unload() {
    if (running) {
        end(Ending::Stopped);
        finish();
    }
    portClosed.end();
    bench.windows.FirmLoadOn = false;
}

void FirmLoad::loadeefile_Click() {
    try {
        loadChosen(bench,
                   {.mode = FileRequest::Mode::Load,
                    .title = "Load EEPROM File",
                    .folder = pathOf(bench.link.CurrentPath) / ".." / "EEPROM_Images",
                    .startName = hexPattern,
                    .filter = "HEX files (*.hex)|*.hex|All files (*.*)|*.*",
                    .defaultExtension = "hex"},
                   "firmware.hex", [this](const FileChoice& choice) {
                       if (choice.readOnly) {
                           throw ToolError(unsupported, "Incorrect extension");
                       }
                       takeFile(choice.name);
                       return true;
                   });
    } catch (const ToolError& error) {
        bench.tellFileError(error, openErrorTitle);
    }
}

void FirmLoad::takeFile(const std::string& name) {
    auto read = std::make_shared<const DownloadImage>(readFile(name));
    if (read->empty()) {
        throw emptyFileError();
    }
    loaded = std::move(read);
    FileInfo.setCaption(nameOf(pathOf(name).filename()) + ": " + counted(loaded->lineCount(), "line") + ", " +
                        counted(loaded->text().size(), "byte") +
                        (loaded->losesLastLine() ? "; its last line will not be sent" : ""));
    FileInfo.setTip(loaded->losesLastLine()
                        ? "The loader takes all lines but the last. An empty line at the file's end makes it "
                          "take them all."
                        : "");
}

void FirmLoad::selectSpeed(const Speed& speed) {
    if (!bench.connect->isOpen()) {
        bench.warn(noPort);
        return;
    }
    try {
        bench.connect->writeDirectly(speed.command);
        bench.connect->setFormat(speed.format);
    } catch (const ToolError& error) {
        bench.tellError(error, lineErrorTitle);
    }
}

void FirmLoad::Prog_Click() {
    if (!bench.connect->isOpen()) {
        bench.warn(noPort);
        return;
    }
    if (!bench.link.port.free()) {
        bench.warn("Commport is busy. Please try again later!");
        return;
    }
    if (!loaded) {
        bench.tellFileError(emptyFileError(), openErrorTitle);
        return;
    }
    claim = bench.link.port.claim(static_cast<std::int32_t>(Step::Send));
    image = loaded;
    WaitLimit = ticksOfPatience;
    WaitTicks = 0;
    cutter = {};
    Line = cutter.cut(image->text());
    LineCount = 0;
    bytesSent = 0;
    bench.link.Last100.clear();
    running = true;
    begun = loop().now();
    Outcome.setCaption("");
    showProgress();
    Timer1.start(tickInterval);
    try {
        bench.connect->writeDirectly("C\r");
    } catch (const ToolError& error) {
        abandon();
        bench.tellError(error, lineErrorTitle);
        return;
    }
    if (!reopen(downloadSpeed)) {
        abandon();
        return;
    }
    WaitTicks = 1;
}

bool FirmLoad::reopen(const char* format) {
    LineSettings settings = bench.connect->settings();
    settings.format = format;
    return bench.connect->reopen(settings);
}

void FirmLoad::StopButton_Click() {
    if (running && claim.step() != static_cast<std::int32_t>(Step::Finish)) {
        end(Ending::Stopped);
    }
}

void FirmLoad::Timer1_Timer() {
    if (!claim.held() || !bench.connect->isOpen()) {
        abandon();
        return;
    }
    switch (static_cast<Step>(claim.step())) {
    case Step::Send:
        sendLine();
        break;
    case Step::AwaitXoff:
        awaitFlow(xoff, [](FirmLoad& run) { run.setStep(Step::AwaitXon); });
        break;
    case Step::AwaitXon:
        awaitFlow(xon, [](FirmLoad& run) { run.startNextLine(); });
        break;
    case Step::Finish:
        finish();
        break;
    }
}

void FirmLoad::sendLine() {
    ++LineCount;
    state.setText(std::to_string(LineCount));
    try {
        bench.connect->writeDirectly(Line);
    } catch (const ToolError& error) {
        abandon();
        bench.tellError(error, lineErrorTitle);
        return;
    }
    bench.link.Last100.clear();
    setStep(Step::AwaitXoff);
}

void FirmLoad::awaitFlow(char expected, void (*seen)(FirmLoad& run)) {
    if (WaitTicks > WaitLimit) {
        end(Ending::Silent);
        return;
    }
    std::string& received = bench.link.Last100;
    bool came = !received.empty() && received.front() == expected;
    received.erase(0, 1);
    if (!came) {
        ++WaitTicks;
        return;
    }
    WaitTicks = 0;
    seen(*this);
}

void FirmLoad::startNextLine() {
    bytesSent += Line.size();
    showProgress();
    Line = cutter.cut(image->text());
    if (cutter.atEnd(image->text())) {
        end(Ending::AllSent);
    } else {
        setStep(Step::Send);
    }
}

void FirmLoad::end(Ending reason) {
    ending = reason;
    setStep(Step::Finish);
}

void FirmLoad::finish() {
    Timer1.stop();
    running = false;
    state.setText("Load end");
    claim.giveBack();
    showOutcome();
    if (!reopen(commandSpeed)) {
        ending = Ending::PortClosed;
        showOutcome();
    }
}

void FirmLoad::abandon() {
    if (!running) {
        return;
    }
    Timer1.stop();
    running = false;
    ending = Ending::PortClosed;
    state.setText("Load end");
    claim.giveBack();
    bench.connect->setFormat(commandSpeed);
    showOutcome();
}

void FirmLoad::showProgress() {
    std::size_t bytes = image->bytesToSend();
    ProgressBar1.putValue(static_cast<int>(bytesSent * 100 / bytes));
    std::size_t linesDone = bytesSent == 0 ? 0 : LineCount;
    std::string text = std::to_string(linesDone) + " of " + counted(image->linesToSend(), "line") + ", " +
                       std::to_string(bytesSent) + " of " + counted(bytes, "byte");
    if (bytesSent > 0 && bytesSent < bytes) {
        double spent = std::chrono::duration<double>(loop().now() - begun).count();
        double left = spent / static_cast<double>(bytesSent) * static_cast<double>(bytes - bytesSent);
        text += ", about " + std::to_string(static_cast<long>(std::ceil(left))) + " s left";
    }
    ProgressText.setCaption(text);
}

void FirmLoad::showOutcome() {
    std::string where =
        LineCount == 0 ? " before the first line." : " at line " + std::to_string(LineCount) + ".";
    switch (ending) {
    case Ending::AllSent:
        Outcome.setCaption(
            "The loader took " + counted(image->linesToSend(), "line") +
            (image->losesLastLine()
                 ? "; the last line was not sent: the file does not end as the loader needs it."
                 : ": all lines were sent."));
        break;
    case Ending::Silent:
        Outcome.setCaption("The loader fell silent" + where);
        break;
    case Ending::Stopped:
        Outcome.setCaption("Stopped" + where);
        break;
    case Ending::PortClosed:
        Outcome.setCaption("The port was closed" + where);
        break;
    }
}

} // namespace zor
