// SPDX-License-Identifier: MIT
#include "link/bench.h"

#include "support/numbers.h"

#include <algorithm>
#include <type_traits>

namespace zor {

namespace {

std::string shown(const std::string& value) {
    return value;
}
std::string shown(bool value) {
    return value ? "true" : "false";
}
std::string shown(std::int32_t value) {
    return std::to_string(value);
}

void call(const std::map<std::string, std::function<void()>, std::less<>>& table, std::string_view name) {
    auto row = table.find(name);
    if (row != table.end()) {
        row->second();
    }
}

} // namespace

Bench::Bench(Platform& machine, Desk& ownDesk)
    : platform(machine)
    , desk(ownDesk) {
    auto publish = [this](const char* name, const auto& value) {
        variables[name] = [&value] {
            using Value = std::remove_cvref_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::int16_t>) {
                return shown(static_cast<std::int32_t>(value));
            } else {
                return shown(value);
            }
        };
    };
#define ZOR_PUBLISH(name) publish(#name, name)
    ZOR_PUBLISH(Last7);
    variables["Last7OK"] = [] { return std::string(Last7OK); };
    variables["Last7ERROR"] = [] { return std::string(Last7ERROR); };
    ZOR_PUBLISH(Last15);
    ZOR_PUBLISH(Last100);
    ZOR_PUBLISH(CommState);
    ZOR_PUBLISH(Buf1);
    ZOR_PUBLISH(LoadBoardRev);
    ZOR_PUBLISH(UsbLocation);
    ZOR_PUBLISH(CurrentPath);
    ZOR_PUBLISH(CurrentDrive);
    ZOR_PUBLISH(ListChangeBlocked);
    ZOR_PUBLISH(LoadBoardIndex);
    publish("SavedBoardIndex", LoadBoardIndex);
    ZOR_PUBLISH(Commport_min);
    ZOR_PUBLISH(Commport_max);
    ZOR_PUBLISH(Pref_LoadWS);
    ZOR_PUBLISH(Pref_CCautoLoad);
    ZOR_PUBLISH(Pref_OpalRevision);
    ZOR_PUBLISH(Pref_JadeRevision);
    ZOR_PUBLISH(Pref_AmberRevision);
    ZOR_PUBLISH(Pref_RxLinkTimeout);
    ZOR_PUBLISH(Pref_Voltage);
    ZOR_PUBLISH(TX0on);
    ZOR_PUBLISH(TX1on);
    ZOR_PUBLISH(TX2on);
    ZOR_PUBLISH(RXon);
    ZOR_PUBLISH(RX1on);
    ZOR_PUBLISH(TRXon);
    ZOR_PUBLISH(TRX1on);
    ZOR_PUBLISH(EEPROMon);
    ZOR_PUBLISH(Terminalon);
    ZOR_PUBLISH(RxLinkOn);
    ZOR_PUBLISH(RxLinkOn_LB2);
    ZOR_PUBLISH(TRxLinkOn);
    ZOR_PUBLISH(OpalV2testOn);
    ZOR_PUBLISH(VireoMacSnifferOn);
    ZOR_PUBLISH(PowerSupplyOn);
    ZOR_PUBLISH(CWLinkRXOn);
    ZOR_PUBLISH(CWLinkTXOn);
    ZOR_PUBLISH(FirmLoadOn);
    ZOR_PUBLISH(SplashOn);
    ZOR_PUBLISH(SelectedTx);
    ZOR_PUBLISH(SelectedRx);
    ZOR_PUBLISH(SelectedTrx);
    ZOR_PUBLISH(BijakuMode);
#undef ZOR_PUBLISH
}

void Bench::setMirror(bool Bench::*on, Monitor* receiver) {
    for (Mirror& mirror : mirrors) {
        if (mirror.on == on) {
            mirror.receiver = receiver;
        }
    }
}

void Bench::open(std::string_view formName) const {
    call(openTool, formName);
}

void Bench::close(std::string_view formName) const {
    call(closeTool, formName);
}

std::optional<std::string> Bench::variable(std::string_view name) const {
    auto row = variables.find(name);
    if (row == variables.end()) {
        return std::nullopt;
    }
    return row->second();
}

void Bench::warn(const std::string& text) const {
    platform.dialogs.show({.text = text, .icon = BoxIcon::Warning});
}

void Bench::tellError(const ToolError& error, const std::string& title, const std::string& closing) const {
    platform.dialogs.show({.text = errorBoxText(error, closing), .title = title, .icon = BoxIcon::Critical});
}

void Bench::tellFileError(const ToolError& error, const std::string& title,
                          const std::string& closing) const {
    if (error.number() != wrongExtension) {
        tellError(error, title, closing);
        return;
    }
    platform.dialogs.show(
        {.text = "File type not supported! Please try again!", .title = title, .icon = BoxIcon::Critical});
}

} // namespace zor
