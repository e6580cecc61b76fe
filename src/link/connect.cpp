// SPDX-License-Identifier: MIT
#include "link/connect.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::chrono::milliseconds watchdogInterval(100);
constexpr std::int16_t watchdogLimit = 10;

/// A rolling tail: the newest characters, at most so many.
void push(std::string& tail, char c, std::size_t length) {
    if (tail.size() >= length) {
        tail.erase(0, tail.size() - length + 1);
    }
    tail += c;
}

/// What a received character looks like in a window; a line feed does not show.
std::string_view shownAs(const char& c) {
    return c == '\r' ? std::string_view("\r\n") : std::string_view(&c, 1);
}

/// The device is no longer there, or another program took it.
bool meansGone(const ToolError& error) {
    return error.number() == invalidPort || error.number() == portInUse;
}

} // namespace

Connect::Connect(Bench& ownBench, LinkBar& ownBar)
    : usb(ownBench.platform.usb, ownBench.platform.loop)
    , bench(ownBench)
    , bar(ownBar)
    , MSComm2(ownBench.platform.ports.create())
    , Timer1(ownBench.platform.loop, [this] { Timer1_Timer(); }) {
    EventLoop& loop = bench.platform.loop;
    MSComm2->received = [this](char c) { receive(c); };
    MSComm2->eventRaised = [this, &loop](int code) { loop.perform([this, code] { lineEvent(code); }); };
    auto publish = [this](const char* name, const std::int16_t& value) {
        bench.variables[name] = [&value] { return std::to_string(value); };
    };
    publish("ComFlag", ComFlag);
    publish("WaitTicks", WaitTicks);
    publish("WaitLimit", WaitLimit);
    publish("WaitArmed", WaitArmed);
    bench.variables["UsbLocationCount"] = [this] { return std::to_string(usb.UsbLocationCount()); };
}

Connect::~Connect() {
    try {
        MSComm2->close();
    } catch (const ToolError&) {
        // The device went before the program; there is nobody left to tell.
    }
}

void Connect::Send_To_LoadBoard(const std::string& command) {
    try {
        exchange(command);
    } catch (const ToolError& error) {
        bench.tellError(error, "USB communication error");
    }
}

void Connect::exchange(const std::string& command) {
    ComFlag = 0;
    bench.Last7.clear();

    Wait wait;
    struct Registration {
        std::vector<Wait*>& waits;
        ~Registration() { waits.pop_back(); }
    };
    waits.push_back(&wait);
    Registration registration{waits};

    MSComm2->write(command);
    WaitLimit = watchdogLimit;
    WaitTicks = 0;
    WaitArmed = 1;
    Timer1.start(watchdogInterval);

    bench.platform.loop.runUntil(
        [&] { return wait.ending != Ending::None || !MSComm2->isOpen() || promptSeen(); });

    if (wait.ending == Ending::OnPurpose) {
        throw ActionDropped();
    }
    if (wait.ending == Ending::Lost) {
        return;
    }
    if (!MSComm2->isOpen()) {
        // Throws away whatever the driver still held of a late answer.
        MSComm2->open(workingNumber, workingSettings);
    }
    if (bench.Last7 == Bench::Last7ERROR) {
        ComFlag = 1;
    }
}

void Connect::writeDirectly(std::string_view bytes) {
    MSComm2->write(bytes);
}

void Connect::open(int portNumber, const LineSettings& settings) {
    MSComm2->open(portNumber, settings);
    // A port that could not be opened is never one to open again.
    workingNumber = portNumber;
    workingSettings = settings;
}

void Connect::closeOnPurpose() {
    endWaits(Ending::OnPurpose);
    MSComm2->close();
}

void Connect::endWaits(Ending ending) {
    for (Wait* wait : waits) {
        if (wait->ending == Ending::None) {
            wait->ending = ending;
        }
    }
}

bool Connect::promptSeen() const {
    return bench.Last7 == Bench::Last7OK || bench.Last7 == Bench::Last7ERROR;
}

void Connect::Timer1_Timer() {
    if (WaitArmed != 1) {
        return;
    }
    // A prompt that is in already is seen before the count is: an exchange that was served never costs the
    // port. Nor does one whose prompt has been overrun by what the board went on to say since: no send waits
    // any more then.
    if (promptSeen() || waits.empty()) {
        Timer1.stop();
        WaitTicks = 0;
    } else if (WaitTicks > WaitLimit) {
        timeOut();
    } else {
        ++WaitTicks;
    }
}

void Connect::timeOut() {
    WaitTicks = 0;
    try {
        MSComm2->close();
    } catch (const ToolError& error) {
        if (meansGone(error)) {
            loseBoard();
        } else {
            endWaits(Ending::TimedOut);
            bench.tellError(error, "LoadBoard Communication error");
        }
        return;
    }
    // Every send that waits ends with this one; none is left without a watchdog.
    endWaits(Ending::TimedOut);
    Timer1.stop();
}

void Connect::loseBoard() {
    endWaits(Ending::Lost);
    bar.LoadboardList.setLocked(false);
    bar.LoadboardList.putText("Press connect");
    bar.CommStatus.setText("No comm.");
    Timer1.stop();
    WaitTicks = 0;
    bar.Connect.setEnabled(true);
    bar.Disconnect.setEnabled(false);
    for (int entry = static_cast<int>(bar.LoadboardList.entries().size()) - 1; entry >= 0; --entry) {
        bar.LoadboardList.removeEntry(entry);
    }
    boardLost();
    bench.platform.dialogs.show({.text = "Loadboard disconnected!\r\nPlease press connect again!",
                                 .title = "LoadBoard Communication Error!",
                                 .icon = BoxIcon::Critical});
}

void Connect::receive(char c) {
    push(bench.Last7, c, 7);
    push(bench.Last15, c, 15);
    push(bench.Last100, c, 100);
    if (c == '\n') {
        return;
    }
    std::string_view shown = shownAs(c);
    for (const Bench::Mirror& mirror : bench.mirrors) {
        if (bench.*mirror.on && mirror.receiver != nullptr) {
            mirror.receiver->setCursor(mirror.receiver->contents().size());
            mirror.receiver->append(shown);
        }
    }
    bar.CommStatus.setText(bench.Last7 == Bench::Last7OK ? "Comm. OK" : "reading...");
}

void Connect::lineEvent(int code) {
    switch (code) {
    case SerialPort::frameError:
    case SerialPort::overrun:
    case SerialPort::bufferOverflow:
    case SerialPort::parityError:
    case SerialPort::transmitBufferFull:
    case SerialPort::controlBlockError:
        break;
    default:
        return;
    }
    if (!MSComm2->isOpen()) {
        return;
    }
    try {
        MSComm2->close();
        MSComm2->open(workingNumber, workingSettings);
    } catch (const ToolError& error) {
        if (meansGone(error)) {
            loseBoard();
        } else {
            endWaits(Ending::Lost);
            bench.tellError(error, "LoadBoard Communication error");
        }
    }
}

void Connect::beginTrial() {
    Last7.clear();
    Last100.clear();
    WaitArmed = 0;
    trial = std::make_unique<Trial>(Trial{bench.platform.ports.create()});
    trial->port->received = [this](char c) { receiveOnTrial(c); };
}

void Connect::endTrial() {
    // The receive handler may be below us on the stack; the port goes when it has returned.
    std::shared_ptr<Trial> ending = std::move(trial);
    if (ending) {
        ending->port->received = nullptr;
        bench.platform.loop.discardLater([ending] {});
    }
    Last7.clear();
    Last100.clear();
}

void Connect::receiveOnTrial(char c) {
    push(Last7, c, 7);
    push(Last100, c, 100);
    if (c == '\n' || !bench.Terminalon) {
        return;
    }
    Monitor* terminal = bench.mirrors.back().receiver;
    if (terminal != nullptr) {
        terminal->append(shownAs(c));
    }
}

} // namespace zor
