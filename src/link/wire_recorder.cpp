// SPDX-License-Identifier: MIT
#include "link/wire_recorder.h"

#include "support/lines.h"
#include "support/vocabulary.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

constexpr std::size_t keptAnswer = 512;
/// A board that talks without line ends is cut into entries of this many characters.
constexpr std::size_t unaskedLength = 256;

WireEntry::Result resultOf(const WireExchange& exchange) {
    if (!exchange.awaited) {
        return WireEntry::Result::NotAwaited;
    }
    switch (exchange.result.outcome) {
    case Exchange::Outcome::Answered:
        return WireEntry::Result::Answered;
    case Exchange::Outcome::Refused:
        return WireEntry::Result::Refused;
    case Exchange::Outcome::TimedOut:
        return WireEntry::Result::NoAnswer;
    case Exchange::Outcome::Lost:
    case Exchange::Outcome::NotOpen:
        break;
    }
    return WireEntry::Result::PortGone;
}

} // namespace

const char* wordOf(WireEntry::Result result) {
    switch (result) {
    case WireEntry::Result::Answered:
        return "answered";
    case WireEntry::Result::Refused:
        return "refused";
    case WireEntry::Result::NoAnswer:
        return "no answer";
    case WireEntry::Result::PortGone:
        return "port gone";
    case WireEntry::Result::NotAwaited:
        return "not awaited";
    case WireEntry::Result::Unasked:
        return "unasked";
    }
    return "";
}

WireRecorder::WireRecorder(Bench& ownBench, WireTap& tap)
    : loop(ownBench.platform.loop)
    , start(loop.now())
    , wallStart(std::chrono::system_clock::now())
    , bytes(tap.bytes.subscribe([this](const WireBytes& crossed) { recordBytes(crossed); }))
    , exchanges(tap.exchanges.subscribe([this](const WireExchange& exchange) { recordExchange(exchange); })) {
}

void WireRecorder::clear() {
    history.clear();
    unasked = {};
    cleared.emit();
}

std::chrono::system_clock::time_point WireRecorder::wallClock(EventLoop::Duration time) const {
    return wallStart + std::chrono::duration_cast<std::chrono::system_clock::duration>(time);
}

Subscription WireRecorder::addNaming(Naming naming) {
    std::uint64_t id = ++lastNaming;
    namings.push_back({id, std::move(naming)});
    return Subscription([this, id] {
        namings.erase(std::remove_if(namings.begin(), namings.end(),
                                     [id](const Named& named) { return named.id == id; }),
                      namings.end());
    });
}

void WireRecorder::recordBytes(const WireBytes& crossed) {
    if (crossed.direction == WireBytes::Direction::ToBoard || crossed.awaited) {
        return;
    }
    EventLoop::Duration now = loop.now();
    if (unasked.answer.empty()) {
        unasked.time = now;
        unasked.port = crossed.number;
    }
    unasked.answer += crossed.bytes;
    unasked.length = now - unasked.time;
    if (unasked.answer.size() >= unaskedLength || unasked.answer.ends_with("\r\n") ||
        unasked.answer.ends_with(LinkVariables::Last7OK) ||
        unasked.answer.ends_with(LinkVariables::Last7ERROR)) {
        recordUnasked();
    }
}

void WireRecorder::recordUnasked() {
    if (unasked.answer.empty()) {
        return;
    }
    unasked.time -= start;
    unasked.result = WireEntry::Result::Unasked;
    add(std::exchange(unasked, {}));
}

void WireRecorder::recordExchange(const WireExchange& exchange) {
    recordUnasked();
    WireEntry entry;
    entry.time = exchange.sent - start;
    entry.length = exchange.ended - exchange.sent;
    entry.port = exchange.number;
    entry.line = exchange.line;
    entry.answer = exchange.result.answer.substr(0, keptAnswer);
    entry.result = resultOf(exchange);
    entry.meaning = meaningOf(entry);
    add(std::move(entry));
}

std::string WireRecorder::meaningOf(const WireEntry& entry) const {
    std::string_view line = withoutLineEnd(entry.line);
    std::string meaning;
    for (std::size_t at = namings.size(); at-- > 0;) {
        meaning = namings[at].naming(line, entry.answer);
        if (!meaning.empty()) {
            break;
        }
    }
    if (meaning.empty()) {
        meaning = commandMeaning(line);
    }
    if (entry.result == WireEntry::Result::Answered) {
        std::string value = answerMeaning(line, entry.answer);
        if (!value.empty()) {
            meaning += ", " + value;
        }
    }
    return meaning;
}

void WireRecorder::add(WireEntry entry) {
    entry.number = next++;
    if (history.size() == capacity) {
        history.pop_front();
    }
    history.push_back(std::move(entry));
    added.emit(history.back());
}

} // namespace zor
