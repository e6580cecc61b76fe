// SPDX-License-Identifier: MIT
#pragma once

#include "eeprom/eeprom.h"
#include "virtual/virtual_bench.h"

#include <algorithm>
#include <functional>
#include <string>

namespace zor::testing {

/// A connected board with an EEPROM on it, and the programmer open.
class ProgrammerBench : public VirtualBench {
  public:
    static constexpr int port = 1;

    ProgrammerBench() {
        ports.place(port, sim::BoardKind::LoadBoard2);
        board().circuits().mountEeprom();
        startAndSearch();
        main().menu.mnutoolsEEPROM.click();
        takeSent();
    }

    [[nodiscard]] sim::Board& board() { return ports.seat(port).board(); }
    [[nodiscard]] sim::SerialEeprom& chip() { return *board().circuits().eeprom(); }
    [[nodiscard]] Eeprom& tool() { return dynamic_cast<Eeprom&>(*desk.find("eeprom")); }

    /// As if a file had brought it.
    void putImage(const std::string& digits) {
        tool().takeImage(shownImage(digits));
        for (Button* button : {&tool().Prog, &tool().Verify, &tool().SaveEEFile}) {
            button->setEnabled(true);
        }
    }
    /// What the EEPROM holds, as digits.
    [[nodiscard]] std::string held(std::size_t bytes) {
        std::string digits;
        for (std::size_t at = 0; at < bytes; ++at) {
            digits += "0123456789abcdef"[chip().bytes()[at] >> 4];
            digits += "0123456789abcdef"[chip().bytes()[at] & 0xF];
        }
        return digits;
    }
    /// Strikes as soon as so many lines that begin so have reached the board: in the middle of the wait for
    /// the last one's answer.
    void strikeAt(std::string_view word, std::size_t lineCount, const std::function<void()>& strike) {
        watch = loop.startTimer(std::chrono::milliseconds(1), EventLoop::Repeat::Every, [=, this] {
            if (lines(word) >= lineCount) {
                loop.stopTimer(watch);
                loop.perform(strike);
            }
        });
    }
    /// Strikes between two exchanges: as soon as a run stands at that step with all its lines answered, and
    /// waits for its next tick.
    void strikeAtStep(std::int32_t step, const std::function<void()>& strike) {
        watch = loop.startTimer(std::chrono::milliseconds(1), EventLoop::Repeat::Every, [=, this] {
            if (shared().link.CommState() == step && shared().link.Last7 == LinkVariables::Last7OK) {
                loop.stopTimer(watch);
                reached = true;
                loop.perform(strike);
            }
        });
    }
    /// The step to strike at came.
    [[nodiscard]] bool stepReached() const { return reached; }
    [[nodiscard]] std::size_t lines(std::string_view word) const {
        return static_cast<std::size_t>(std::ranges::count_if(
            ports.sent, [word](const VirtualPorts::SentLine& line) { return line.text.starts_with(word); }));
    }
    void runToTheEnd() {
        while (tool().running()) {
            run(std::chrono::milliseconds(10));
        }
        run(std::chrono::milliseconds(200));
    }
    /// The title of the oldest box, which is taken away; empty if there is none.
    std::string takeBox() {
        if (dialogs.boxes.empty()) {
            return {};
        }
        std::string title = dialogs.boxes.front().title;
        dialogs.boxes.pop_front();
        return title;
    }

  private:
    EventLoop::TimerId watch = 0;
    bool reached = false;
};

/// So many bytes that differ from their neighbours and from one page to the next.
inline std::string patternDigits(std::size_t bytes) {
    std::string digits;
    for (std::size_t at = 0; at < bytes; ++at) {
        std::size_t value = (at * 37 + at / 16) & 0xFF;
        digits += "0123456789abcdef"[value >> 4];
        digits += "0123456789abcdef"[value & 0xF];
    }
    return digits;
}

} // namespace zor::testing
