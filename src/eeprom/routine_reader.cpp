// SPDX-License-Identifier: MIT
#include "eeprom/routine_reader.h"

#include "eeprom/command_data.h"
#include "eeprom/event_routine.h"
#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zor {

namespace {

using Kind = RoutineCommand::Kind;

constexpr std::size_t byteDigits = 2;
constexpr std::size_t wordDigits = 4;
/// How much of a transmit command's data is shown.
constexpr std::size_t shownBytes = 8;
constexpr std::size_t shownCharacters = 24;
constexpr std::size_t leastCharacters = 4;

/// The commands of the two transmitters by their leading bits; a panel's tables say more of each.
struct CodeRow {
    std::uint32_t mask;
    std::uint32_t code;
    const char* name;
};
constexpr std::array<CodeRow, 8> chipCodes = {{
    {0xE000, 0x8000, "Configuration Setting"},
    {0xF000, 0xA000, "Frequency Setting"},
    {0xFF00, 0xC000, "Power Management"},
    {0xFF00, 0xC200, "Low Battery Detector"},
    {0xFF00, 0xC800, "Data Rate"},
    {0xFF00, 0xCA00, "Push-Button"},
    {0xFF00, 0xD200, "PLL Setting"},
    {0xE000, 0xE000, "Wake-Up Timer"},
}};
constexpr std::uint32_t powerNibble = 0xB;
constexpr std::uint32_t sleepByte = 0xC4;
constexpr std::uint32_t transmitByte = 0xC6;
constexpr std::uint32_t dataRateByte = 0xC8;
constexpr std::uint32_t pushButtonByteCode = 0xCA;

std::string bytesText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

/// Reads from the front; what it took so far decides what a frequency means.
class Reader {
  public:
    Reader(std::string_view routine, const ReadingBasis& readingBasis)
        : digits(routine)
        , basis(readingBasis)
        , band(basis.panel != nullptr ? basis.panel->bandField() : 0) {}

    std::vector<RoutineCommand> all() {
        while (at < digits.size()) {
            next();
        }
        return std::move(commands);
    }

  private:
    void next() {
        std::size_t left = digits.size() - at;
        if (isPadding()) {
            add(left, Kind::Padding, "Zero bytes", bytesText(left / byteDigits) + " without a command");
            return;
        }
        std::optional<std::uint32_t> first = number(at, byteDigits);
        if (!first) {
            unreadable(std::min(left, byteDigits), left < byteDigits ? "half a byte" : "no digits");
        } else if (*first >> 4 == powerNibble) {
            chipWord(byteDigits, *first);
        } else if (*first == transmitByte) {
            transmit();
        } else if (std::optional<std::uint32_t> word = number(at, wordDigits)) {
            twoBytes(*first, *word);
        } else {
            unreadable(std::min(left, wordDigits), "ends in the midst of a command");
        }
    }

    /// Nothing but zero bytes to the end: a block's filling.
    [[nodiscard]] bool isPadding() const {
        return (digits.size() - at) % byteDigits == 0 &&
               digits.find_first_not_of('0', at) == std::string_view::npos;
    }

    /// nullopt where so many digits are not there.
    [[nodiscard]] std::optional<std::uint32_t> number(std::size_t from, std::size_t count) const {
        return from + count <= digits.size() ? readHex(digits.substr(from, count)) : std::nullopt;
    }

    void twoBytes(std::uint32_t first, std::uint32_t word) {
        std::uint32_t low = word & 0xFF;
        if (first == sleepByte) {
            if (low == 0) {
                add(wordDigits, Kind::Controller, "Sleep", "ends the routine");
            } else {
                unreadable(wordDigits, "a sleep command ends in 00");
            }
        } else if (first == pushButtonByteCode) {
            add(wordDigits, Kind::Controller, "Push-Button", pushButtonText(static_cast<std::uint8_t>(low)));
        } else if (first == dataRateByte && !wordOf(word, ControlWord::Size::TwoBytes)) {
            // The KT1100 has no such word; its controller clocks the data.
            std::string rate = obtainedRate(hexText(word), basis.crystalHertz);
            add(wordDigits, Kind::Controller, "Data Rate", rate + " bps");
        } else {
            chipWord(wordDigits, word);
        }
    }

    [[nodiscard]] const ControlWord* wordOf(std::uint32_t value, ControlWord::Size size) const {
        if (basis.panel == nullptr) {
            return nullptr;
        }
        const std::vector<ControlWord*>& words = basis.panel->words();
        auto word = std::find_if(words.begin(), words.end(), [&](const ControlWord* candidate) {
            return candidate->size() == size && candidate->fits(value);
        });
        return word == words.end() ? nullptr : *word;
    }

    void chipWord(std::size_t count, std::uint32_t value) {
        auto size = count == byteDigits ? ControlWord::Size::OneByte : ControlWord::Size::TwoBytes;
        if (basis.panel != nullptr) {
            const ControlWord* word = wordOf(value, size);
            if (word == nullptr) {
                unreadable(count, "no command of the " + basis.panel->title().substr(0, 6));
                return;
            }
            add(count, Kind::Word, word->title(), meaningOf(*word, value));
            return;
        }
        const char* name = size == ControlWord::Size::OneByte ? "Power Setting" : codeName(value);
        if (name == nullptr) {
            unreadable(count, "no command of the transmitters");
        } else {
            add(count, Kind::Word, name, "open the transmitter's panel to read it");
        }
    }

    static const char* codeName(std::uint32_t value) {
        auto row = std::find_if(chipCodes.begin(), chipCodes.end(), [value](const CodeRow& candidate) {
            return (value & candidate.mask) == candidate.code;
        });
        return row == chipCodes.end() ? nullptr : row->name;
    }

    std::string meaningOf(const ControlWord& word, std::uint32_t value) {
        const ChipPanel& panel = *basis.panel;
        if (&word == &panel.Ctrlw) {
            band = ControlWord::part(value, word.fields().front());
        } else if (&word == &panel.Freqw) {
            return panel.frequencyText(ControlWord::part(value, word.fields().front()), band);
        } else if (&word == &panel.Wkupw) {
            WakeUpSetting setting;
            setting.exponent = ControlWord::part(value, word.fields()[0]);
            setting.mantissa = ControlWord::part(value, word.fields()[1]);
            return panel.wakeUpText(setting) + " (" + word.explain(value) + ")";
        }
        return word.explain(value);
    }

    static std::string pushButtonText(std::uint8_t byte) {
        static constexpr std::array<const char*, 4> times = {"160 ms", "40 ms", "10 ms", "bypassed"};
        PushButtonSettings settings = pushButtonSettings(byte);
        std::string text = std::string("de-bouncing ") + times[static_cast<std::size_t>(settings.debouncing)];
        std::string buttons;
        for (std::size_t button = 0; button < settings.continuous.size(); ++button) {
            buttons += settings.continuous[button] ? " " + std::to_string(button + 1) : "";
        }
        text += buttons.empty() ? "" : ", continuous for button" + buttons;
        text += settings.fourthButton ? ", fourth button emulated" : "";
        return text + (settings.pullUpOff ? ", pull-up off" : "");
    }

    void transmit() {
        std::optional<std::uint32_t> length = number(at + byteDigits, byteDigits);
        std::size_t left = digits.size() - at;
        if (!length) {
            unreadable(std::min(left, wordDigits), "a transmit command without a length");
            return;
        }
        std::size_t whole = transmitHead + *length * byteDigits;
        std::string_view data = digits.substr(at + transmitHead, whole - transmitHead);
        if (whole > left) {
            unreadable(left, "transmits " + bytesText(*length) + ", but only " +
                                 bytesText(data.size() / byteDigits) + " are there");
        } else if (std::any_of(data.begin(), data.end(), [](char c) { return !readHex({&c, 1}); })) {
            unreadable(whole, "data that are no digits");
        } else {
            add(whole, Kind::Controller, "Data transmit", dataText(data));
        }
    }

    static std::string dataText(std::string_view data) {
        std::size_t count = data.size() / byteDigits;
        std::string text = bytesText(count) + (count > 0 ? ":" : "");
        for (std::size_t byte = 0; byte < std::min(count, shownBytes); ++byte) {
            text += " " + std::string(data.substr(byte * byteDigits, byteDigits));
        }
        text += count > shownBytes ? " ..." : "";
        std::string characters(data);
        Hex2Ascii2Hex(characters, false);
        std::string run = longestText(characters);
        return run.empty() ? text : text + " \"" + run + "\"";
    }

    /// The longest run of characters that a person can read, cut to what is shown.
    static std::string longestText(std::string_view characters) {
        auto readable = [](char c) { return c >= ' ' && c <= '~'; };
        std::string_view best;
        for (std::size_t begin = 0; begin < characters.size();) {
            std::size_t end = begin;
            while (end < characters.size() && readable(characters[end])) {
                ++end;
            }
            if (end - begin > best.size()) {
                best = characters.substr(begin, end - begin);
            }
            begin = end + 1;
        }
        if (best.size() < leastCharacters) {
            return {};
        }
        return std::string(best.substr(0, shownCharacters)) + (best.size() > shownCharacters ? "..." : "");
    }

    void unreadable(std::size_t count, const std::string& reason) {
        add(count, Kind::Unreadable, "cannot be read", reason);
    }

    void add(std::size_t count, Kind kind, std::string name, std::string meaning) {
        commands.push_back({at, count, kind, std::move(name), std::move(meaning)});
        at += count;
    }

    std::string_view digits;
    const ReadingBasis& basis;
    /// The band of the configuration word that came last.
    int band;
    std::size_t at = 0;
    std::vector<RoutineCommand> commands;
};

} // namespace

std::vector<RoutineCommand> readRoutine(std::string_view routine, const ReadingBasis& basis) {
    return Reader(routine, basis).all();
}

} // namespace zor
