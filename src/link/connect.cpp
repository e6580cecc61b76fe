// SPDX-License-Identifier: MIT
#include "link/connect.h"

#include "elements/text_field.h"

#include <algorithm>

namespace zor {

namespace {

constexpr std::chrono::milliseconds watchdogInterval(100);
constexpr std::int16_t watchdogLimit = 10;
/// More of one answer than any command gives; a board that goes on without a prompt must not cost memory.
constexpr std::size_t keptAnswer = 4096;

/// A rolling tail: the newest characters, at most so many.
void push(std::string& tail, char c, std::size_t length) {
    if (tail.size() < length) {
        tail += c;
        return;
    }
    std::shift_left(tail.begin(), tail.end(), 1);
    tail.back() = c;
}

/// What a received character looks like in a window; a line feed does not show.
std::string_view shownAs(const char& c) {
    return c == '\r' ? std::string_view("\r\n") : std::string_view(&c, 1);
}

/// The device is no longer there, or another program took it.
bool meansGone(const ToolError& error) {
    return error.number() == invalidPort || error.number() == portInUse;
}

bool isPrompt(std::string_view last7) {
    return last7 == LinkVariables::Last7OK || last7 == LinkVariables::Last7ERROR;
}

} // namespace

Connect::Connect(Bench& ownBench)
    : usb(ownBench.platform.usb, ownBench.platform.loop)
    , bench(ownBench)
    , MSComm2(ownBench.platform.ports.create())
    , Timer1(ownBench.platform.loop, [this] { Timer1_Timer(); }) {
    EventLoop& loop = bench.platform.loop;
    MSComm2->received = [this](char c) { receive(c); };
    MSComm2->eventRaised = [this, &loop](int code) { loop.perform([this, code] { lineEvent(code); }); };
    MSComm2->deviceGone = [this, &loop] { loop.perform([this] { deviceGone(); }); };
}

Connect::~Connect() {
    try {
        MSComm2->close();
    } catch (const ToolError&) {
        // The device went before the program; there is nobody left to tell.
    }
}

Exchange Connect::Send_To_LoadBoard(const std::string& command) {
    EventLoop& loop = bench.platform.loop;
    EventLoop::ActionId action = loop.currentAction();
    if (action != 0 && std::find(withoutPort.begin(), withoutPort.end(), action) != withoutPort.end()) {
        return {};
    }
    Exchange result;
    EventLoop::Duration sent = loop.now();
    try {
        result = exchange(command);
    } catch (const ToolError& error) {
        result.outcome = Exchange::Outcome::NotOpen;
        troubled.emit({PortTrouble::Kind::SendFailed, error});
    }
    if (result.portGone()) {
        silence(action);
        if (!isOpen()) {
            portClosed.emit();
        }
    }
    if (tap.exchanges.heard()) {
        tap.exchanges.emit({workingNumber, command, result, true, sent, loop.now()});
    }
    return result;
}

void Connect::silence(EventLoop::ActionId action) {
    const EventLoop& loop = bench.platform.loop;
    withoutPort.erase(std::remove_if(withoutPort.begin(), withoutPort.end(),
                                     [&loop](auto ended) { return !loop.isRunning(ended); }),
                      withoutPort.end());
    if (action != 0) {
        withoutPort.push_back(action);
    }
}

Exchange Connect::exchange(const std::string& command) {
    ComFlag = 0;
    bench.link.Last7.clear();

    Wait wait;
    wait.action = bench.platform.loop.currentAction();
    struct Registration {
        std::vector<Wait*>& waits;
        ~Registration() { waits.pop_back(); }
    };
    waits.push_back(&wait);
    Registration registration{waits};

    MSComm2->write(command);
    tellTap(WireBytes::Port::Working, WireBytes::Direction::ToBoard, command);
    waitForPrompt(wait);
    if (wait.result.outcome == Exchange::Outcome::Refused) {
        ComFlag = 1;
    }
    return std::move(wait.result);
}

void Connect::waitForPrompt(Wait& wait) {
    WaitLimit = watchdogLimit;
    WaitTicks = 0;
    WaitArmed = 1;
    Timer1.start(watchdogInterval);
    bench.platform.loop.runUntil([&] { return wait.ending != Ending::None || !MSComm2->isOpen(); });

    switch (wait.ending) {
    case Ending::Served:
        return;
    case Ending::OnPurpose:
        throw ActionDropped();
    case Ending::Lost:
        wait.result.outcome = Exchange::Outcome::Lost;
        break;
    case Ending::None:
    case Ending::TimedOut:
        wait.result.outcome = Exchange::Outcome::TimedOut;
        if (!MSComm2->isOpen()) {
            // Throws away whatever the driver still held of a late answer.
            MSComm2->open(workingNumber, workingSettings);
        }
        break;
    }
    wait.result.tail = bench.link.Last100;
}

void Connect::writeDirectly(std::string_view bytes) {
    MSComm2->write(bytes);
    tellTap(WireBytes::Port::Working, WireBytes::Direction::ToBoard, bytes);
    if (tap.exchanges.heard()) {
        EventLoop::Duration now = bench.platform.loop.now();
        tap.exchanges.emit({workingNumber, bytes, {}, false, now, now});
    }
}

void Connect::open(int portNumber, const LineSettings& settings) {
    MSComm2->open(portNumber, settings);
    // A port that could not be opened is never one to open again.
    workingNumber = portNumber;
    workingSettings = settings;
    withoutPort.clear();
}

void Connect::closeOnPurpose() {
    endWaits(Ending::OnPurpose);
    closing.emit();
    try {
        MSComm2->close();
    } catch (...) {
        portClosed.emit();
        throw;
    }
    portClosed.emit();
}

bool Connect::reopen(const LineSettings& settings) {
    workingSettings = settings;
    try {
        MSComm2->close();
        MSComm2->open(workingNumber, settings);
    } catch (const ToolError& error) {
        if (meansGone(error)) {
            loseBoard();
        } else {
            endWaits(Ending::Lost);
            portClosed.emit();
            troubled.emit({PortTrouble::Kind::ClosingFailed, error});
        }
    }
    return isOpen();
}

void Connect::setFormat(const std::string& format) {
    workingSettings.format = format;
    MSComm2->setFormat(format);
}

void Connect::endWaits(Ending ending) {
    for (Wait* wait : waits) {
        // A send that was served, but whose action waits behind a box or another send, has lost its port as
        // well.
        if (wait->ending == Ending::None || ending == Ending::OnPurpose) {
            wait->ending = ending;
        }
        if (ending == Ending::Lost) {
            silence(wait->action);
        }
    }
}

bool Connect::anyWaiting() const {
    return std::any_of(waits.begin(), waits.end(),
                       [](const Wait* wait) { return wait->ending == Ending::None; });
}

void Connect::Timer1_Timer() {
    if (WaitArmed != 1) {
        return;
    }
    // A send whose prompt is in waits no longer, so an exchange that was served never costs the port,
    // whatever the board went on to say since.
    if (!anyWaiting()) {
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
            troubled.emit({PortTrouble::Kind::ClosingFailed, error});
        }
        return;
    }
    // Every send that waits ends with this one; none is left without a watchdog.
    endWaits(Ending::TimedOut);
    Timer1.stop();
}

void Connect::deviceGone() {
    // A send that waits has its watchdog, which finds the same.
    if (anyWaiting() || !MSComm2->isOpen()) {
        return;
    }
    try {
        MSComm2->close();
    } catch (const ToolError&) {
        // That it has gone is known already.
    }
    loseBoard();
}

void Connect::loseBoard() {
    endWaits(Ending::Lost);
    Timer1.stop();
    WaitTicks = 0;
    portClosed.emit();
    lost.emit();
    troubled.emit({PortTrouble::Kind::BoardLost, ToolError(invalidPort)});
}

void Connect::receive(char c) {
    push(bench.link.Last7, c, 7);
    push(bench.link.Last15, c, 15);
    push(bench.link.Last100, c, 100);
    tellTap(WireBytes::Port::Working, WireBytes::Direction::FromBoard, {&c, 1});
    for (Wait* wait : waits) {
        hear(*wait, c);
    }
    if (c == '\n') {
        return;
    }
    std::string_view shown = shownAs(c);
    for (const Bench::Mirror& mirror : bench.mirrors) {
        if (bench.windows.*mirror.on && mirror.receiver != nullptr) {
            mirror.receiver->setCursor(mirror.receiver->contents().size());
            mirror.receiver->append(shown);
        }
    }
    bench.CommStatus->setText(bench.link.Last7 == LinkVariables::Last7OK ? "Comm. OK" : "reading...");
}

void Connect::hear(Wait& wait, char c) const {
    if (wait.ending != Ending::None) {
        return;
    }
    push(wait.last7, c, 7);
    std::string& answer = wait.result.answer;
    if (answer.size() >= 2 * keptAnswer) {
        answer.erase(0, keptAnswer);
    }
    answer += c;
    if (!isPrompt(wait.last7)) {
        return;
    }
    wait.ending = Ending::Served;
    wait.result.outcome =
        wait.last7 == LinkVariables::Last7OK ? Exchange::Outcome::Answered : Exchange::Outcome::Refused;
    wait.result.tail = bench.link.Last100;
}

void Connect::tellTap(WireBytes::Port role, WireBytes::Direction direction, std::string_view bytes) {
    if (tap.bytes.heard()) {
        int number = role == WireBytes::Port::Working ? workingNumber : trial ? trial->number : 0;
        bool awaited = role == WireBytes::Port::Search || anyWaiting();
        tap.bytes.emit({role, number, direction, bytes, awaited});
    }
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
    if (MSComm2->isOpen()) {
        reopen(LineSettings(workingSettings));
    }
}

void Connect::beginTrial() {
    Last7.clear();
    Last100.clear();
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

void Connect::openTrial(int portNumber) {
    trial->number = portNumber;
    trial->port->open(portNumber, LineSettings{});
}

void Connect::askOnTrial(std::string_view line) {
    trial->port->write(line);
    trial->line = line;
    trial->asked = bench.platform.loop.now();
    Last100.clear();
    tellTap(WireBytes::Port::Search, WireBytes::Direction::ToBoard, line);
}

void Connect::closeTrial() {
    tellTrial();
    trial->port->close();
}

void Connect::tellTrial() {
    if (!tap.exchanges.heard() || trial->line.empty()) {
        return;
    }
    Exchange result;
    result.answer = Last100;
    result.outcome = Last7 == LinkVariables::Last7OK      ? Exchange::Outcome::Answered
                     : Last7 == LinkVariables::Last7ERROR ? Exchange::Outcome::Refused
                                                          : Exchange::Outcome::TimedOut;
    tap.exchanges.emit({trial->number, trial->line, result, true, trial->asked, bench.platform.loop.now()});
}

void Connect::receiveOnTrial(char c) {
    push(Last7, c, 7);
    push(Last100, c, 100);
    tellTap(WireBytes::Port::Search, WireBytes::Direction::FromBoard, {&c, 1});
    if (c == '\n' || !bench.windows.Terminalon) {
        return;
    }
    Monitor* terminal = bench.mirrors.back().receiver;
    if (terminal != nullptr) {
        terminal->append(shownAs(c));
    }
}

} // namespace zor
