// SPDX-License-Identifier: MIT
#include "simulator/board_control.h"

#include "host/files.h"
#include "simulator/command_arguments.h"
#include "simulator/loader_firmware.h"
#include "simulator/register_list_chip.h"
#include "simulator/trace_text.h"
#include "support/error.h"
#include "support/numbers.h"

#include <vector>

namespace zor::sim {

namespace {

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        auto end = text.find(' ');
        if (end != 0) {
            words.push_back(text.substr(0, end));
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return words;
}

std::optional<std::uint8_t> readByte(std::string_view text) {
    auto value = readHex(text);
    return value && *value <= 0xFF ? std::optional(static_cast<std::uint8_t>(*value)) : std::nullopt;
}

// Each takes what stands behind the statement's word and tells whether it could be read.

bool setStatus(Board& board, std::string_view text) {
    auto words = wordsOf(text);
    if (words.empty() || words.size() > 2) {
        return false;
    }
    auto first = readByte(words.front());
    auto second = words.size() == 2 ? readByte(words.back()) : std::nullopt;
    if (!first || (words.size() == 2 && !second)) {
        return false;
    }
    board.setStatus(*first, second);
    return true;
}

bool setInterruptLine(Board& board, std::string_view text) {
    bool good = text == "high" || text == "low";
    if (good) {
        board.setInterruptLine(text == "high");
    }
    return good;
}

bool setDataLine(Board& board, std::string_view text) {
    bool good = text == "1" || text == "0";
    if (good) {
        board.setDataLine(text == "1");
    }
    return good;
}

bool setMute(Board& board, std::string_view text) {
    if (text.empty()) {
        board.setMute(true);
    }
    return text.empty();
}

bool setSpeaking(Board& board, std::string_view text) {
    if (text.empty()) {
        board.setMute(false);
    }
    return text.empty();
}

bool setDelay(Board& board, std::string_view text) {
    auto value = readNumber(text, 0, 3'600'000);
    if (value) {
        board.setDelay(std::chrono::milliseconds(*value));
    }
    return value.has_value();
}

bool refuse(Board& board, std::string_view text) {
    board.refuseNext(unescaped(text));
    return true;
}

bool emitText(Board& board, std::string_view text) {
    board.emit(unescaped(text));
    return !text.empty();
}

bool hearPacket(Board& board, std::string_view text) {
    board.hearPacket(unescaped(text));
    return true;
}

bool setCurrent(Board& board, std::string_view text) {
    auto words = wordsOf(text);
    if (words.size() != 2) {
        return false;
    }
    auto high = readNumber(words[0], 0, 1023);
    auto low = readNumber(words[1], 0, 1023);
    if (high && low) {
        board.setCurrentCounts(*high, *low);
    }
    return high && low;
}

bool setOffset(Board& board, std::string_view text) {
    bool negative = text.starts_with('-');
    auto value = readNumber(text.substr(negative ? 1 : 0), 0, 32);
    if (value) {
        board.radio().setFrequencyOffset(negative ? -*value : *value);
    }
    return value.has_value();
}

bool fromAir(Board& board, std::string_view text) {
    std::vector<std::uint8_t> bytes;
    for (std::string_view word : wordsOf(text)) {
        auto byte = readByte(word);
        if (!byte) {
            return false;
        }
        bytes.push_back(*byte);
    }
    for (std::uint8_t byte : bytes) {
        board.radio().receiveFromAir(byte);
    }
    return !bytes.empty();
}

bool mountChip(Board& board, std::string_view text) {
    auto chip = chipOfName(text);
    if (chip) {
        board.setChip(chip);
        board.circuits().mountRadio();
    }
    return chip.has_value();
}

/// Pairs of hexadecimal digits, blanks wherever they like.
std::optional<std::vector<std::uint8_t>> readBytes(std::string_view text) {
    std::string digits;
    for (char c : text) {
        if (c != ' ') {
            digits += c;
        }
    }
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        auto byte = readHex(std::string_view(digits).substr(at, 2));
        if (!byte || at + 1 == digits.size()) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(*byte));
    }
    return bytes;
}

bool setEepromBusy(SerialEeprom& chip, std::string_view text) {
    if (text == "always") {
        chip.setStuckBusy();
        return true;
    }
    auto time = readNumber(text, 0, 3'600'000);
    if (time) {
        chip.setWriteTime(std::chrono::milliseconds(*time));
    }
    return time.has_value();
}

bool setEeprom(Board& board, std::string_view text) {
    Hardware& circuits = board.circuits();
    if (text.empty()) {
        circuits.mountEeprom();
        return true;
    }
    if (text == "none") {
        circuits.removeEeprom();
        return true;
    }
    if (text == "again") {
        return circuits.remountEeprom();
    }
    SerialEeprom& chip = circuits.eeprom() != nullptr ? *circuits.eeprom() : circuits.mountEeprom();
    auto blank = text.find(' ');
    std::string_view rest = blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1);
    if (text.substr(0, blank) == "busy") {
        return setEepromBusy(chip, rest);
    }
    auto address = readNumber(text.substr(0, blank), 0, static_cast<int>(SerialEeprom::byteCount) - 1);
    auto bytes = readBytes(rest);
    bool good = address && bytes && !bytes->empty() && *address + bytes->size() <= SerialEeprom::byteCount;
    if (good) {
        chip.put(static_cast<std::size_t>(*address), *bytes);
    }
    return good;
}

bool setFlowTime(Board& board, std::string_view text) {
    auto value = readNumber(text, 0, 3'600'000);
    if (value) {
        board.setFlowTime(std::chrono::milliseconds(*value));
    }
    return value.has_value();
}

bool stallAt(Board& board, std::string_view text) {
    auto value = readNumber(text, 0, 1'000'000'000);
    if (value) {
        board.stallAt(static_cast<std::size_t>(*value));
    }
    return value.has_value();
}

bool keepImage(Board& board, std::string_view text) {
    const LoaderFirmware* loader = board.loader();
    if (loader == nullptr || text.empty()) {
        return false;
    }
    try {
        writeFileWhole(text, imageText(loader->image()));
    } catch (const ToolError&) {
        return false;
    }
    return true;
}

/// A fresh chip of registers, with the values of a register list's first chip if one is named.
bool setRegisters(Board& board, std::string_view text) {
    try {
        RegisterList list = text.empty() ? RegisterList{} : readRegisterList(readFile(text));
        takeFirstChip(board.circuits().fitRegisters(), list);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

RegisterChip& registersOn(Board& board) {
    Hardware& circuits = board.circuits();
    return circuits.registers() == nullptr ? circuits.fitRegisters() : *circuits.registers();
}

bool setRegister(Board& board, std::string_view text) {
    auto words = wordsOf(text);
    auto address = words.size() == 2 ? readByte(words[0]) : std::nullopt;
    auto value = words.size() == 2 && words[1].size() <= 4 ? readHex(words[1]) : std::nullopt;
    bool good = address && *address < RegisterChip::registerCount && value;
    if (good && words[1].size() > 2) {
        registersOn(board).setStatus(*address, static_cast<std::uint16_t>(*value));
    } else if (good) {
        registersOn(board).setRegister(*address, static_cast<std::uint8_t>(*value));
    }
    return good;
}

bool fillFifo(Board& board, std::string_view text) {
    auto bytes = readBytes(text);
    for (std::uint8_t byte : bytes.value_or(std::vector<std::uint8_t>())) {
        registersOn(board).receive(byte);
    }
    return bytes && !bytes->empty();
}

bool setLoop(Board& board, std::string_view text) {
    if (text == "off") {
        registersOn(board).openLoop();
        return true;
    }
    auto words = wordsOf(text);
    auto rate = words.empty() || words.size() > 2 ? std::nullopt : readNumericPrefix(words[0]);
    auto seed = words.size() == 2 ? readNumber(words[1], 0, 2'000'000'000) : std::optional(1);
    bool good = rate && *rate >= 0 && *rate <= 1 && seed;
    if (good) {
        registersOn(board).closeLoop(*rate, static_cast<std::uint32_t>(*seed));
    }
    return good;
}

struct Statement {
    std::string_view word;
    std::string_view form;
    std::string_view meaning;
    bool (*run)(Board& board, std::string_view text);
};

// clang-format off
constexpr Statement statements[] = {
    {"status",  "status XX [YY]",   "the chip's status bytes from now on",                  setStatus},
    {"irq",     "irq high|low",     "level of the interrupt line",                          setInterruptLine},
    {"data",    "data 0|1",         "level of the monitored data line",                     setDataLine},
    {"mute",    "mute",             "take lines, say nothing",                              setMute},
    {"unmute",  "unmute",           "answer again",                                         setSpeaking},
    {"delay",   "delay MS",         "answer so many milliseconds later",                    setDelay},
    {"refuse",  "refuse LINE",      "answer the next such line with the error prompt",      refuse},
    {"emit",    "emit TEXT",        "say this; \\r \\n \\xNN are understood",               emitText},
    {"packet",  "packet TEXT",      "a packet from the air, as for emit",                   hearPacket},
    {"current", "current HIGH LOW", "what the converter reads in each range, 0 to 1023",    setCurrent},
    {"offset",  "offset N",         "frequency offset in the second status byte, in steps", setOffset},
    {"air",     "air XX XX ...",    "bytes that the receiver hears",                        fromAir},
    {"chip",    "chip NAME",        "mount another radio chip",                             mountChip},
    {"eeprom",  "eeprom [again | none | busy MS|always | ADDRESS XX...]",
                                    "a serial EEPROM instead of the chip, fresh or the last one; its bytes", setEeprom},
    {"slow",    "slow MS",          "a loader takes so long for each of XOFF and XON",      setFlowTime},
    {"stall",   "stall N",          "a loader falls silent at line N of a download, 0 never", stallAt},
    {"image",   "image PATH",       "write what a loader was given to a file, as text",     keepImage},
    {"registers", "registers [FILE]", "a chip of 128 registers; its values from a register list", setRegisters},
    {"register", "register AA VV",  "what a register holds; four digits are a status word", setRegister},
    {"fifo",    "fifo XX XX ...",   "bytes that wait in the register chip's receive FIFO",  fillFifo},
    {"loop",    "loop RATE [SEED]|off",
                                    "transmit to receive FIFO, with that bit error rate",   setLoop},
};
// clang-format on

} // namespace

ControlResult control(Board& board, std::string_view statement) {
    while (statement.ends_with('\r') || statement.ends_with(' ')) {
        statement.remove_suffix(1);
    }
    if (statement.empty()) {
        return {};
    }
    if (statement == "quit") {
        return {ControlOutcome::quit, {}};
    }
    auto blank = statement.find(' ');
    std::string_view word = statement.substr(0, blank);
    std::string_view text =
        blank == std::string_view::npos ? std::string_view() : statement.substr(blank + 1);
    for (const Statement& known : statements) {
        if (known.word != word) {
            continue;
        }
        if (known.run(board, text)) {
            return {};
        }
        std::string chips = word == "chip" ? ", NAME one of " + chipNames() : std::string();
        return {ControlOutcome::failed, "expected: " + std::string(known.form) + chips};
    }
    return {ControlOutcome::failed, "unknown statement \"" + std::string(word) + "\""};
}

std::string controlHelp() {
    std::string help;
    for (const Statement& statement : statements) {
        std::string form(statement.form);
        // A long form has its meaning under it.
        if (form.size() < 20) {
            form.resize(20, ' ');
        } else {
            form.append("\n").append(22, ' ');
        }
        help += "  " + form + std::string(statement.meaning) + "\n";
    }
    return help + "  quit                end\n";
}

} // namespace zor::sim
