// SPDX-License-Identifier: MIT
#include "registertool/register_naming.h"

#include "link/wire_recorder.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "support/lines.h"
#include "support/numbers.h"

#include <algorithm>
#include <optional>

namespace zor {

namespace {

constexpr std::string_view transferWord = "S2";
constexpr std::string_view writeByte = "WS ";
constexpr std::string_view readByte = "RS ";
constexpr std::uint32_t writeBit = 0x80;

/// The word of a transfer; nothing for any other line, and for one with more or fewer digits.
std::optional<std::uint32_t> transferredWord(std::string_view line) {
    if (!line.starts_with(transferWord)) {
        return std::nullopt;
    }
    line.remove_prefix(transferWord.size());
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return line.size() == 4 ? readHex(line) : std::nullopt;
}

/// The names of bits that are 1, the highest first; a dash is none.
template <class Names>
std::string setBits(const Names& names, std::uint32_t value) {
    std::string text;
    for (std::size_t number = names.size(); number-- > 0;) {
        const std::string& name = names[number];
        if ((value >> number & 1) != 0 && !name.empty() && name != "-") {
            text += (text.empty() ? "" : " ") + name;
        }
    }
    return text;
}

/// The last of what a board said, as the tool takes a value from it: 15 characters, also of a shorter answer.
std::string endOf(std::string_view answer) {
    constexpr std::size_t kept = 15;
    std::string_view end = answer.substr(answer.size() - std::min(answer.size(), kept));
    return std::string(kept - end.size(), ' ').append(end);
}

} // namespace

RegisterNaming::RegisterNaming(SPI& ownTool)
    : tool(ownTool) {
    if (tool.bench.wireRecorder != nullptr) {
        naming = tool.bench.wireRecorder->addNaming(
            [this](std::string_view line, std::string_view answer) { return meaningOf(line, answer); });
    }
}

std::string RegisterNaming::meaningOf(std::string_view line, std::string_view answer) {
    Sender sender =
        !lineOnItsWay.empty() && withoutLineEnd(lineOnItsWay) == line ? Sender::Tool : Sender::Somebody;
    if (line == "L3" || line == "H3") {
        fifoSelected = line == "L3";
        return {};
    }
    if (auto word = transferredWord(line)) {
        bool ours = sender == Sender::Tool || tool.bench.openPanel() == nullptr;
        return ours ? meaningOfWord(*word, answer, sender) : std::string();
    }
    if (sender == Sender::Tool && fifoSelected && tool.fifo.FifoSelectLine) {
        if (line.starts_with(writeByte)) {
            return "write " + std::string(line.substr(writeByte.size())) + " to the transmit FIFO";
        }
        return line == readByte ? "read the receive FIFO" : "";
    }
    return {};
}

std::string RegisterNaming::meaningOfWord(std::uint32_t word, std::string_view answer, Sender sender) const {
    const bool writes = (word >> 8 & writeBit) != 0;
    std::string address = hexText(word >> 8 & ~writeBit, 2);
    std::string value = hexText(word & 0xFF, 2);
    const FifoPage& fifo = tool.fifo;
    if (!fifo.FifoSelectLine && address == (writes ? fifo.TxAddress : fifo.RxAddress)) {
        return writes ? "write " + value + " to the transmit FIFO" : "read the receive FIFO";
    }
    std::uint32_t carried = word & 0xFF;
    if (!writes) {
        std::string end = endOf(answer);
        carried = readHex(answeredHighByte(end) + answeredByte(end)).value_or(0);
    }
    auto [name, bits] = namedAt(address, carried);
    if (name.empty()) {
        if (sender == Sender::Somebody) {
            return {};
        }
        return writes ? "write " + value + " to register " + address : "read register " + address;
    }
    std::string meaning = (writes ? "write " : "read ") + std::string(name);
    if (writes) {
        meaning += " " + value;
    }
    return bits.empty() ? meaning : meaning + ": " + bits;
}

RegisterNaming::Named RegisterNaming::namedAt(std::string_view address, std::uint32_t value) const {
    if (const Setting* setting = tool.table.at(address)) {
        return {setting->Name, setBits(setting->bit, value & 0xFF)};
    }
    if (const StatusViewer::StatusRegister* status = tool.status.at(address)) {
        return {status->Name, setBits(status->bit, value)};
    }
    return {};
}

} // namespace zor
