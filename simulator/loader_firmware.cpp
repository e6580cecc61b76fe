// SPDX-License-Identifier: MIT
#include "simulator/loader_firmware.h"

#include "simulator/loadboard_firmware.h"
#include "support/numbers.h"

namespace zor::sim {

namespace {

constexpr char xoff = '\x13';
constexpr char xon = '\x11';

/// A record is ":", its length, two bytes of address, its type, the data and a sum that makes all bytes add
/// up to 0.
struct Record {
    bool valid = false;
    std::uint8_t type = 0;
};

constexpr std::uint8_t endRecord = 1;

Record readRecord(std::string_view text) {
    if (!text.starts_with(':') || text.size() < 11 || text.size() % 2 == 0) {
        return {};
    }
    text.remove_prefix(1);
    std::uint8_t sum = 0;
    for (std::size_t at = 0; at < text.size(); at += 2) {
        auto byte = readHex(text.substr(at, 2));
        if (!byte) {
            return {};
        }
        sum = static_cast<std::uint8_t>(sum + *byte);
    }
    auto length = readHex(text.substr(0, 2));
    return {.valid = sum == 0 && text.size() / 2 == *length + 5u,
            .type = static_cast<std::uint8_t>(*readHex(text.substr(6, 2)))};
}

} // namespace

Answer LoaderFirmware::execute(std::string_view line) {
    if (downloading) {
        return takeRecord(line);
    }
    if (line == "i") {
        return Answer::success(bannerText(BoardKind::Loader));
    }
    if (line == "C") {
        downloading = true;
        recordCount = 0;
        return Answer::silence();
    }
    bool known = line.empty() || line == "C192" || line == "C384" || line == "C576";
    return known ? Answer::success() : Answer::refusal();
}

Answer LoaderFirmware::takeRecord(std::string_view line) {
    // The first line of an image begins with the load command's letter.
    if (recordCount == 0 && line.starts_with('L')) {
        line.remove_prefix(1);
    }
    Record record = readRecord(line);
    if (!record.valid) {
        return Answer::silence();
    }
    ++recordCount;
    downloading = record.type != endRecord;
    return Answer::bare({xoff, xon});
}

Answer MonitorFirmware::execute(std::string_view line) {
    if (line == "i") {
        return Answer::success(bannerText(BoardKind::Monitor));
    }
    return line.empty() ? Answer::success() : Answer::refusal();
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
