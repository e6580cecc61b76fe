// SPDX-License-Identifier: MIT
// A panel's words: whose settings they hold, what a line with one means, and all of them as text.
#include "panels/common/chip_panel.h"
#include "support/letters.h"
#include "support/vocabulary.h"

#include <algorithm>
#include <string>
#include <utility>

namespace zor {

void ChipPanel::setWords(std::vector<ControlWord*> sentByUpdate, std::vector<ControlWord*> notSent) {
    updateWords = sentByUpdate;
    allWords = std::move(sentByUpdate);
    allWords.insert(allWords.end(), notSent.begin(), notSent.end());
    for (ControlWord* word : allWords) {
        wordSubscriptions.push_back(word->rewritten.subscribe([this] { LabelUpdate.setVisible(true); }));
        setFromEntries.push_back(std::make_unique<MenuEntry>(
            *this, nullptr, "SetFromWord(" + std::to_string(setFromEntries.size() + 1) + ")",
            "Set from a word..."));
        setFromEntries.back()->onClick = [this, word] {
            askedWord = word;
            bench.tools.open(Tool::frm_SetFrom);
        };
    }
}

std::string ChipPanel::meaningOfLine(std::string_view line) const {
    std::string chip = std::string(ownTraits.title).substr(0, std::string_view(ownTraits.title).find(' '));
    return commandMeaning(line, [&](std::uint32_t value, int bits) {
        auto size = bits == 8 ? ControlWord::Size::OneByte : ControlWord::Size::TwoBytes;
        auto word = std::find_if(allWords.begin(), allWords.end(), [&](const ControlWord* candidate) {
            return candidate->size() == size && candidate->fits(value);
        });
        if (word == allWords.end()) {
            return std::string();
        }
        std::string explained = (*word)->explain(value);
        return chip + " " + (*word)->title() + (explained.empty() ? "" : ", " + explained);
    });
}

void ChipPanel::feed(CodeList& list, ControlWord& word) {
    list.onChange = [&word] { word.rebuild(); };
}

void ChipPanel::feed(TickBox& tick, ControlWord& word) {
    tick.onChange = [&word] { word.rebuild(); };
}

std::string ChipPanel::wordLines() const {
    std::string text;
    for (const ControlWord* word : allWords) {
        text += word->text() + "\t" + word->title() + "\r\n";
    }
    return text;
}

std::string ChipPanel::wordArray() const {
    std::string text = "static const unsigned short " + lowerCase(chip()) + "_words[] = {\r\n";
    for (const ControlWord* word : allWords) {
        bool oneByte = word->size() == ControlWord::Size::OneByte;
        std::string digits(
            word->text().size() < (oneByte ? 2U : 4U) ? (oneByte ? 2U : 4U) - word->text().size() : 0U, '0');
        text += "    0x" + digits + word->text() + ", /* " + word->title() + (oneByte ? ", one byte" : "") +
                " */\r\n";
    }
    return text + "};\r\n";
}

WordSetting ChipPanel::wakeUpMantissa() {
    return numberSetting(
        WKUPM, [this] { return wakeUp.mantissa; }, ownTraits.wakeUp.mantissa);
}

WordSetting ChipPanel::wakeUpExponent() {
    return numberSetting(
        WKUPR, [this] { return wakeUp.exponent; }, ownTraits.wakeUp.exponent);
}

BitField ChipPanel::bandBits(int lowBit) {
    std::vector<std::pair<int, Option*>> options;
    for (Band which : ownTraits.offeredBands) {
        options.emplace_back(bandConstants(*ownTraits.bands, which).code, band(which));
    }
    BitField field = explained(
        bits(
            lowBit + 1, lowBit, "band", [this] { return BandCode; }, [this] { return bandCaption(); }),
        [this](int code) {
            for (Band which : ownTraits.offeredBands) {
                if (bandConstants(*ownTraits.bands, which).code == code) {
                    return band(which)->caption();
                }
            }
            return "code " + std::to_string(code) + ", not a band of the chip";
        });
    return readBack(std::move(field), optionSetting([this] { return BandCode; }, std::move(options)));
}

BitField ChipPanel::capacitanceBits(int lowBit) {
    return bits(lowBit + 3, lowBit, "load capacitance", Cxtal);
}

BitField ChipPanel::thresholdBits(int highBit) {
    return readBack(
        explained(bits(
                      highBit, 0, "threshold", [this] { return lowBattery; },
                      [this] { return LBDV.text() + " V"; }),
                  [this](int code) { return thresholdVoltage(code, ownTraits.threshold).text + " V"; }),
        numberSetting(
            LBD, [this] { return lowBattery; }, ownTraits.threshold.range));
}

} // namespace zor
