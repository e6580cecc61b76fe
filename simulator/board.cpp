// SPDX-License-Identifier: MIT
#include "simulator/board.h"

#include "simulator/loader_firmware.h"
#include "simulator/monitor_firmware.h"

#include <utility>

namespace zor::sim {

namespace {

// A bench may write a line with the line feed that ends it; lines are kept without.
std::string withoutLineFeed(std::string line) {
    if (line.ends_with('\n')) {
        line.pop_back();
    }
    return line;
}

} // namespace

Board::Board(BoardKind kind)
    : boardKind(kind)
    , hardware(kind)
    , firmware(makeFirmware(kind, hardware)) {}

void Board::receive(char byte) {
    bool endsLine = std::exchange(behindCarriageReturn, false) && byte == '\n';
    if (endsLine) {
        if (lineFeedFollowed) {
            lineFeedFollowed();
        }
        return;
    }
    if (hardware.dataSelector == DataSelector::dataMode) {
        return;
    }
    if (byte == '\r') {
        behindCarriageReturn = true;
        completeLine();
    } else if (line.size() < longestLine) {
        line.push_back(byte);
    } else {
        cut = true;
    }
}

void Board::completeLine() {
    std::string complete = std::exchange(line, {});
    bool whole = !std::exchange(cut, false);
    if (lineReceived) {
        lineReceived(complete);
    }
    Answer answer = answerTo(complete, whole);
    if (mute || answer.text.empty()) {
        return;
    }
    if (answer.pace.count() == 0) {
        say(std::move(answer.text), delay);
        return;
    }
    std::chrono::milliseconds later = delay;
    for (char byte : answer.text) {
        later += answer.pace;
        say(std::string(1, byte), later);
    }
}

/// What the board says to a line, prompt included.
Answer Board::answerTo(const std::string& complete, bool whole) {
    if (boardKind == BoardKind::Silent) {
        return Answer::silence();
    }
    if (auto refused = refusals.find(complete); !whole || refused != refusals.end()) {
        if (whole) {
            refusals.erase(refused);
        }
        return Answer::paced(std::string(errorPrompt), std::chrono::milliseconds(0));
    }
    Answer answer = firmware->execute(complete);
    if (answer.kind == Answer::Kind::silence || answer.kind == Answer::Kind::bare) {
        return answer;
    }
    if (auto reply = replies.find(complete); reply != replies.end()) {
        answer.text = reply->second + std::string(successPrompt);
    } else if (answer.kind == Answer::Kind::success) {
        answer.text += successPrompt;
    } else {
        answer.text = errorPrompt;
    }
    return answer;
}

void Board::lineOpened() {
    line.clear();
    cut = false;
    behindCarriageReturn = false;
    // A pseudo-terminal carries no break, so the opening stands for the one that a driver sends in front of
    // it.
    if (hardware.dataSelector == DataSelector::dataMode) {
        hardware.dataSelector = DataSelector::internal;
    }
}

void Board::breakReceived() {
    lineOpened();
    firmware->interrupted();
}

void Board::setStatus(std::uint8_t first, std::optional<std::uint8_t> second) {
    hardware.radio().setStatus(first, second);
}

void Board::refuseNext(std::string refused) {
    refusals.insert(withoutLineFeed(std::move(refused)));
}

void Board::setReply(std::string replied, std::string text) {
    replies[withoutLineFeed(std::move(replied))] = std::move(text);
}

void Board::setFlowTime(std::chrono::milliseconds value) {
    if (auto* taking = dynamic_cast<LoaderFirmware*>(firmware.get())) {
        taking->setFlowTime(value);
    }
}

void Board::stallAt(std::size_t lineNumber) {
    if (auto* taking = dynamic_cast<LoaderFirmware*>(firmware.get())) {
        taking->stallAt(lineNumber);
    }
}

const LoaderFirmware* Board::loader() const {
    return dynamic_cast<const LoaderFirmware*>(firmware.get());
}

void Board::reportPacket() {
    if (auto* monitor = dynamic_cast<MonitorFirmware*>(firmware.get())) {
        emit(monitor->nextPacket());
    }
}

void Board::emit(std::string text) {
    say(std::move(text), std::chrono::milliseconds{0});
}

void Board::hearPacket(std::string_view packet) {
    if (hardware.dataSelector == DataSelector::dataMode) {
        return;
    }
    report(firmware->packetHeard(packet), delay);
}

void Board::hearBytes(std::string_view bytes, std::chrono::milliseconds airTime) {
    if (hardware.dataSelector == DataSelector::dataMode) {
        return;
    }
    if (firmware->receivesPacket()) {
        report(firmware->bytesHeard(bytes), delay + airTime);
        return;
    }
    for (char byte : bytes) {
        hardware.radio().receiveFromAir(static_cast<std::uint8_t>(byte));
    }
}

void Board::report(const std::string& text, std::chrono::milliseconds later) {
    if (text.empty()) {
        return;
    }
    if (mute) {
        firmware->reportUnheard(text);
    } else {
        say(text, later);
    }
}

void Board::say(std::string bytes, std::chrono::milliseconds later) {
    if (transmit) {
        transmit({std::move(bytes), later});
    }
}

} // namespace zor::sim
