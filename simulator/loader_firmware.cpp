// SPDX-License-Identifier: MIT
#include "simulator/loader_firmware.h"

#include "simulator/loadboard_firmware.h"
#include "simulator/monitor_firmware.h"

#include <algorithm>

namespace zor::sim {

namespace {

constexpr char xoff = '\x13';
constexpr char xon = '\x11';
/// The line's speed before and after a download.
constexpr int commandSpeed = 19200;

bool isSpeedCommand(std::string_view line) {
    return line == "C192" || line == "C384" || line == "C576";
}

} // namespace

Answer LoaderFirmware::execute(std::string_view line) {
    // Also in the midst of a download: the PC may have given it up without the line's telling so.
    if (line == "C") {
        downloading = true;
        stalled = false;
        ended = false;
        lines = 0;
        downloaded.clear();
        return Answer::silence();
    }
    if (downloading) {
        return takeLine(line);
    }
    if (line == "i") {
        return Answer::success(bannerText(BoardKind::Loader));
    }
    return line.empty() || isSpeedCommand(line) ? Answer::success() : Answer::refusal();
}

void LoaderFirmware::lineSpeedChanged(int baud) {
    // A download goes at 57600 baud; back at the speed of commands, the PC has ended it.
    downloading = downloading && baud != commandSpeed;
}

Answer LoaderFirmware::takeLine(std::string_view line) {
    if (isSpeedCommand(line)) {
        return Answer::silence();
    }
    stalled = stalled || ++lines == stallLine;
    if (stalled) {
        return Answer::silence();
    }
    // What stands in front of the colon is passed over: the "L" of an image's first line. A line without a
    // colon holds no record and has nothing to write.
    std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
        return flow();
    }
    HexRecord record = readRecord(line.substr(colon));
    if (record.fault != RecordFault::none) {
        return Answer::silence();
    }
    downloaded.take(record);
    ended = record.type == RecordType::end;
    downloading = !ended;
    return flow();
}

Answer LoaderFirmware::flow() const {
    return Answer::paced({xoff, xon}, flowTime);
}

std::unique_ptr<Firmware> makeFirmware(BoardKind kind, Hardware& hardware) {
    switch (kind) {
    case BoardKind::LoadBoard1:
    case BoardKind::LoadBoard2:
        return std::make_unique<LoadBoardFirmware>(kind, hardware);
    case BoardKind::Loader:
        return std::make_unique<LoaderFirmware>();
    case BoardKind::Monitor:
        return std::make_unique<MonitorFirmware>();
    case BoardKind::Silent:
        break;
    }
    return std::make_unique<SilentFirmware>();
}

} // namespace zor::sim
