// SPDX-License-Identifier: MIT
// What a panel sends of itself: its words, one by one and all, and the calibration.
#include "link/connect.h"
#include "panels/common/chip_panel.h"

#include <string>

namespace zor {

namespace {

/// What the foot of the window says of words that the chip may not have.
class WordReport {
  public:
    explicit WordReport(std::size_t wordCount)
        : words(wordCount) {}

    void add(const ControlWord& word, const std::string& sent, const Exchange& result) {
        if (result.outcome == Exchange::Outcome::Refused) {
            refused += (refused.empty() ? "The board refused " : ", ") + word.title() + " " + sent;
        } else if (result.outcome == Exchange::Outcome::TimedOut) {
            ++unanswered;
        }
    }

    /// Empty if there is nothing to tell.
    [[nodiscard]] std::string text() const {
        std::string silence = unanswered == 0 ? std::string()
                                              : "No answer to " + std::to_string(unanswered) + " of " +
                                                    std::to_string(words) + " words";
        return refused + (refused.empty() || silence.empty() ? "" : "; ") + silence;
    }

  private:
    std::size_t words;
    std::size_t unanswered = 0;
    std::string refused;
};

} // namespace

void ChipPanel::dropIfClosed() const {
    if (isClosed() && !sayingFarewell) {
        throw ActionDropped();
    }
}

bool ChipPanel::portReady(const char* boxText) {
    if (bench.connect->isOpen()) {
        return true;
    }
    notice("Communication fault.");
    bench.warn(boxText);
    return false;
}

void ChipPanel::reading() {
    bench.CommStatus->setText("reading...");
}

Exchange ChipPanel::sendLine(const char* line) {
    dropIfClosed();
    Exchange result = bench.connect->Send_To_LoadBoard(std::string(line) + "\r");
    dropIfClosed();
    return result;
}

Exchange ChipPanel::sendWord(ControlWord& word) {
    dropIfClosed();
    // While the line waits the word may change, and be sent again.
    ControlWord::Sending sending = word.beginSending();
    Exchange result = bench.connect->Send_To_LoadBoard(word.line());
    if (result.outcome == Exchange::Outcome::Answered) {
        word.markSent(sending);
    }
    dropIfClosed();
    return result;
}

void ChipPanel::sendStep(ControlWord& word, std::uint32_t value) {
    word.show(value);
    try {
        sendWord(word);
    } catch (...) {
        // Cut short: the next Update must not send a step of the calibration.
        word.rebuild();
        throw;
    }
}

void ChipPanel::Update_Click() {
    clearNotice();
    if (!portReady(ownTraits.updateWithoutPort)) {
        return;
    }
    LabelUpdate.setVisible(false);
    reading();
    // Cut short, or without a board at the end of it: the chip has not heard all of it.
    auto stillNeeded = [this] { LabelUpdate.setVisible(true); };
    WordReport report(updateWords.size());
    try {
        for (ControlWord* word : updateWords) {
            std::string sent = word->text();
            Exchange result = sendWord(*word);
            report.add(*word, sent, result);
            if (result.portGone()) {
                break;
            }
            wordSent(*word);
        }
    } catch (...) {
        stillNeeded();
        throw;
    }
    bench.notice(report.text());
    if (!bench.connect->isOpen()) {
        stillNeeded();
    }
}

void ChipPanel::CalibratePLL_Click() {
    clearNotice();
    if (!portReady("Commport not available, please open commport. Synthesizer was not calibrated!")) {
        return;
    }
    reading();
    calibrate();
    if (!LabelUpdate.visible()) {
        LabelCalibration.setVisible(false);
        ++calibrations;
        calibratedBand = BandCode;
    }
}

} // namespace zor
