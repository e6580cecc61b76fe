// SPDX-License-Identifier: MIT
#include "simulator/loadboard_firmware.h"

#include "simulator/command_arguments.h"

#include <utility>

namespace zor::sim {

namespace {

enum class Boards { both, firstGeneration, secondGeneration };

bool runsOn(Boards boards, BoardKind kind) {
    return boards == Boards::both || (boards == Boards::firstGeneration) == (kind == BoardKind::LoadBoard1);
}

} // namespace

struct LoadBoardFirmware::Command {
    std::string_view word;
    ArgumentForm form;
    Boards boards;
    Answer (LoadBoardFirmware::*run)(std::string_view argument);
};

// clang-format off
const LoadBoardFirmware::Command LoadBoardFirmware::commands[] = {
    {"i",    ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::identify},
    {"V",    ArgumentForm::supplyCode,    Boards::both,             &LoadBoardFirmware::setSupply},
    {"A1",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::selectHighRange},
    {"A0",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::selectLowRange},
    {"AD",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::readConverter},
    {"H",    ArgumentForm::outputLine,    Boards::both,             &LoadBoardFirmware::driveHigh},
    {"L",    ArgumentForm::outputLine,    Boards::both,             &LoadBoardFirmware::driveLow},
    {"Z",    ArgumentForm::outputLine,    Boards::both,             &LoadBoardFirmware::release},
    {"X0",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::selectExternal},
    {"X1",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::selectInternal},
    {"X2",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::enterDataMode},
    {"y0",   ArgumentForm::zeroOrOne,     Boards::both,             &LoadBoardFirmware::modulateLow},
    {"y1",   ArgumentForm::zeroOrOne,     Boards::both,             &LoadBoardFirmware::modulateHigh},
    {"y2",   ArgumentForm::zeroOrOne,     Boards::both,             &LoadBoardFirmware::startSequence},
    {"y3",   ArgumentForm::zeroOrOne,     Boards::both,             &LoadBoardFirmware::stopSequence},
    {"d2",   ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::startMonitor},
    {"d0",   ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::stopMonitor},
    {"RO",   ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::readDataLine},
    {"RI",   ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::readInterruptLine},
    {"ri",   ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::readInterruptLine},
    {"S1",   ArgumentForm::byte,          Boards::both,             &LoadBoardFirmware::transferByte},
    {"S2",   ArgumentForm::word,          Boards::both,             &LoadBoardFirmware::transferWord},
    {"SX",   ArgumentForm::byteList,      Boards::both,             &LoadBoardFirmware::transferBytes},
    {"WS",   ArgumentForm::byteList,      Boards::both,             &LoadBoardFirmware::writeBytes},
    {"RS",   ArgumentForm::optionalCount, Boards::both,             &LoadBoardFirmware::readBytes},
    {"F1,",  ArgumentForm::numberList,    Boards::firstGeneration,  &LoadBoardFirmware::receiveEither},
    {"F2,",  ArgumentForm::numberList,    Boards::firstGeneration,  &LoadBoardFirmware::receiveToCharacter},
    {"F3,",  ArgumentForm::numberList,    Boards::firstGeneration,  &LoadBoardFirmware::receiveLength},
    {"F11,", ArgumentForm::numberList,    Boards::secondGeneration, &LoadBoardFirmware::receiveEither},
    {"F12,", ArgumentForm::numberList,    Boards::secondGeneration, &LoadBoardFirmware::receiveToCharacter},
    {"F13,", ArgumentForm::numberList,    Boards::secondGeneration, &LoadBoardFirmware::receiveLength},
    {"F15",  ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::reportPending},
    {"F0",   ArgumentForm::none,          Boards::both,             &LoadBoardFirmware::stopReceiving},
    {"T14,", ArgumentForm::byteList,      Boards::secondGeneration, &LoadBoardFirmware::sendPacket},
    {"T0",   ArgumentForm::none,          Boards::secondGeneration, &LoadBoardFirmware::stopSending},
};
// clang-format on

Answer LoadBoardFirmware::execute(std::string_view line) {
    if (line.empty()) {
        return Answer::success();
    }
    for (const Command& command : commands) {
        if (!line.starts_with(command.word) || !runsOn(command.boards, boardKind)) {
            continue;
        }
        std::string_view argument = withoutBlanks(line.substr(command.word.size()));
        if (hasForm(argument, command.form)) {
            return (this->*command.run)(argument);
        }
    }
    return Answer::refusal();
}

void LoadBoardFirmware::interrupted() {
    if (board.dataSelector == DataSelector::dataMode) {
        board.dataSelector = DataSelector::internal;
    }
}

Answer LoadBoardFirmware::identify(std::string_view) {
    return Answer::success(bannerText(boardKind));
}

Answer LoadBoardFirmware::setSupply(std::string_view argument) {
    board.setSupplyCode(byteOf(argument));
    return Answer::success();
}

Answer LoadBoardFirmware::selectHighRange(std::string_view) {
    board.currentRange = CurrentRange::high;
    return Answer::success();
}

Answer LoadBoardFirmware::selectLowRange(std::string_view) {
    board.currentRange = CurrentRange::low;
    return Answer::success();
}

Answer LoadBoardFirmware::readConverter(std::string_view) {
    return Answer::success(converterText(board.converter()));
}

Answer LoadBoardFirmware::driveHigh(std::string_view argument) {
    board.drive(numberOf(argument), OutputState::high);
    return Answer::success();
}

Answer LoadBoardFirmware::driveLow(std::string_view argument) {
    board.drive(numberOf(argument), OutputState::low);
    return Answer::success();
}

Answer LoadBoardFirmware::release(std::string_view argument) {
    board.drive(numberOf(argument), OutputState::released);
    return Answer::success();
}

Answer LoadBoardFirmware::selectExternal(std::string_view) {
    board.dataSelector = DataSelector::external;
    return Answer::success();
}

Answer LoadBoardFirmware::selectInternal(std::string_view) {
    board.dataSelector = DataSelector::internal;
    return Answer::success();
}

Answer LoadBoardFirmware::enterDataMode(std::string_view) {
    board.dataSelector = DataSelector::dataMode;
    return Answer::silence();
}

Answer LoadBoardFirmware::modulateLow(std::string_view) {
    board.modulation = Modulation::low;
    return Answer::success();
}

Answer LoadBoardFirmware::modulateHigh(std::string_view) {
    board.modulation = Modulation::high;
    return Answer::success();
}

Answer LoadBoardFirmware::startSequence(std::string_view) {
    board.modulation = Modulation::pseudoRandom;
    return Answer::success();
}

Answer LoadBoardFirmware::stopSequence(std::string_view) {
    board.modulation = Modulation::stopped;
    return Answer::success();
}

Answer LoadBoardFirmware::startMonitor(std::string_view) {
    board.dataLineMonitored = true;
    return Answer::success();
}

Answer LoadBoardFirmware::stopMonitor(std::string_view) {
    board.dataLineMonitored = false;
    return Answer::success();
}

Answer LoadBoardFirmware::readDataLine(std::string_view) {
    return Answer::success(dataLineText(board.dataLineLevel()));
}

Answer LoadBoardFirmware::readInterruptLine(std::string_view) {
    return Answer::success(interruptText(board.interruptLine()));
}

Answer LoadBoardFirmware::transferByte(std::string_view argument) {
    board.transfer({byteOf(argument)});
    return Answer::success();
}

Answer LoadBoardFirmware::transferWord(std::string_view argument) {
    auto back = board.transfer({byteOf(argument.substr(0, 2)), byteOf(argument.substr(2))});
    return Answer::success(wordText(static_cast<std::uint16_t>(back[0] << 8 | back[1])));
}

Answer LoadBoardFirmware::transferBytes(std::string_view argument) {
    board.transfer(bytesOf(argument));
    return Answer::success();
}

Answer LoadBoardFirmware::writeBytes(std::string_view argument) {
    board.write(bytesOf(argument));
    return Answer::success();
}

Answer LoadBoardFirmware::readBytes(std::string_view argument) {
    if (argument.empty()) {
        return Answer::success(byteText(board.read()));
    }
    std::vector<std::uint8_t> bytes(numberOf(argument));
    for (std::uint8_t& byte : bytes) {
        byte = board.read();
    }
    return Answer::success(bytesText(bytes));
}

Answer LoadBoardFirmware::arm(PacketEnd condition, std::string_view argument) {
    auto numbers = numbersOf(argument);
    unheard.clear();
    receiver.arm(condition, static_cast<std::uint8_t>(numbers.front()), numbers.size() > 1 ? numbers[1] : 0);
    return Answer::success();
}

Answer LoadBoardFirmware::receiveEither(std::string_view argument) {
    return arm(PacketEnd::characterOrLength, argument);
}

Answer LoadBoardFirmware::receiveToCharacter(std::string_view argument) {
    return arm(PacketEnd::character, argument);
}

Answer LoadBoardFirmware::receiveLength(std::string_view argument) {
    return arm(PacketEnd::length, argument);
}

Answer LoadBoardFirmware::stopReceiving(std::string_view) {
    receiver.disarm();
    unheard.clear();
    return Answer::success();
}

Answer LoadBoardFirmware::reportPending(std::string_view) {
    return Answer::success(std::exchange(unheard, {}));
}

std::string LoadBoardFirmware::packetHeard(std::string_view packet) {
    return receiver.take(packet);
}

void LoadBoardFirmware::reportUnheard(std::string_view report) {
    unheard = report.substr(0, report.size() - successPrompt.size());
}

std::string LoadBoardFirmware::bytesHeard(std::string_view bytes) {
    return receiver.takeBytes(bytes);
}

// The firmware keys the transmitter for the packet by itself.
Answer LoadBoardFirmware::sendPacket(std::string_view argument) {
    if (board.radiate) {
        board.radiate(bytesOf(argument));
    }
    return Answer::success();
}

Answer LoadBoardFirmware::stopSending(std::string_view) {
    return Answer::success();
}

} // namespace zor::sim
