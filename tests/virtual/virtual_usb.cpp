// SPDX-License-Identifier: MIT
#include "virtual/virtual_usb.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zor::testing {

namespace {

constexpr std::array<std::string_view, 6> calls = {"FT_CreateDeviceInfoList",
                                                   "FT_GetDeviceInfoDetail",
                                                   "FT_OpenEx",
                                                   "FT_SetBitMode",
                                                   "FT_Write",
                                                   "FT_Close"};
constexpr std::uint8_t transmitLine = 1;
constexpr std::uint8_t bitBang = 1;
// A line that is low for longer than a character's ten bits at 19200 baud is a break.
constexpr EventLoop::Duration characterTime(521);

} // namespace

void VirtualUsb::describe(int port, std::string description, std::uint32_t location) {
    ports.seat(port);
    described[port] = {location, std::move(description)};
}

bool VirtualUsb::fail(int port, const std::string& call, FtStatus status) {
    if (std::find(calls.begin(), calls.end(), call) == calls.end()) {
        return false;
    }
    failures[{port, call}] = status;
    return true;
}

std::optional<FtDeviceDetail> VirtualUsb::detailOf(int port) const {
    VirtualSeat* seat = ports.find(port);
    if (seat == nullptr) {
        return std::nullopt;
    }
    if (auto entry = described.find(port); entry != described.end()) {
        return entry->second;
    }
    if (seat->board().kind() == sim::BoardKind::LoadBoard2) {
        return FtDeviceDetail{static_cast<std::uint32_t>(port), "LoadBoard"};
    }
    return std::nullopt;
}

FtStatus VirtualUsb::failure(int port, const std::string& call) const {
    auto entry = failures.find({port, call});
    return entry == failures.end() ? ftOk : entry->second;
}

FtStatus VirtualUsb::FT_CreateDeviceInfoList(std::uint32_t& count) {
    listed.clear();
    for (const auto& [port, seat] : ports.seats()) {
        if (!detailOf(port)) {
            continue;
        }
        if (FtStatus status = failure(port, "FT_CreateDeviceInfoList"); status != ftOk) {
            return status;
        }
        listed.push_back(port);
    }
    count = static_cast<std::uint32_t>(listed.size());
    return ftOk;
}

FtStatus VirtualUsb::FT_GetDeviceInfoDetail(std::uint32_t index, FtDeviceDetail& detail) {
    if (index >= listed.size()) {
        return deviceNotFound;
    }
    int port = listed[index];
    auto found = detailOf(port);
    if (!found) {
        return deviceNotFound;
    }
    if (FtStatus status = failure(port, "FT_GetDeviceInfoDetail"); status != ftOk) {
        return status;
    }
    // An open device is listed without being described.
    detail = ports.find(port)->heldByPort() ? FtDeviceDetail{} : *found;
    return ftOk;
}

FtStatus VirtualUsb::FT_OpenEx(std::uint32_t location, std::uint32_t flag, FtHandle& handle) {
    if (flag != ftOpenByLocation) {
        return deviceNotFound;
    }
    for (const auto& [port, seat] : ports.seats()) {
        auto detail = detailOf(port);
        if (!detail || detail->location != location) {
            continue;
        }
        if (FtStatus status = failure(port, "FT_OpenEx"); status != ftOk) {
            return status;
        }
        if (seat->heldByPort() || seat->heldByDriver || seat->busy) {
            return deviceNotOpened;
        }
        seat->heldByDriver = true;
        pins[port] = {};
        handle = static_cast<FtHandle>(port);
        return ftOk;
    }
    return deviceNotFound;
}

FtStatus VirtualUsb::FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) {
    int port = static_cast<int>(handle);
    auto lines = pins.find(port);
    if (lines == pins.end()) {
        return deviceNotOpened;
    }
    if (FtStatus status = failure(port, "FT_SetBitMode"); status != ftOk) {
        return status;
    }
    lines->second.outputs = mask;
    lines->second.mode = mode;
    if (mode != bitBang || (mask & transmitLine) == 0) {
        endLow(port, lines->second);
    }
    return ftOk;
}

FtStatus VirtualUsb::FT_Write(FtHandle handle, std::string_view bytes) {
    int port = static_cast<int>(handle);
    auto lines = pins.find(port);
    if (lines == pins.end()) {
        return deviceNotOpened;
    }
    if (FtStatus status = failure(port, "FT_Write"); status != ftOk) {
        return status;
    }
    Pins& held = lines->second;
    for (char levels : bytes) {
        bool low = held.mode == bitBang && (held.outputs & transmitLine) != 0 && (levels & transmitLine) == 0;
        if (!low) {
            endLow(port, held);
        } else if (!held.lowSince) {
            held.lowSince = loop.now();
        }
    }
    return ftOk;
}

FtStatus VirtualUsb::FT_Close(FtHandle handle) {
    int port = static_cast<int>(handle);
    auto lines = pins.find(port);
    if (lines == pins.end()) {
        return deviceNotOpened;
    }
    endLow(port, lines->second);
    pins.erase(lines);
    ports.seat(port).heldByDriver = false;
    return failure(port, "FT_Close");
}

void VirtualUsb::endLow(int port, Pins& lines) {
    auto since = std::exchange(lines.lowSince, std::nullopt);
    VirtualSeat* seat = ports.find(port);
    if (since && seat != nullptr && loop.now() - *since > characterTime) {
        seat->board().breakReceived();
    }
}

} // namespace zor::testing
