// SPDX-License-Identifier: MIT
#include "virtual/virtual_machine.h"

#include "virtual/temporary_place.h"

namespace zor::testing {

TemporaryFolder::TemporaryFolder()
    : ownPath(makeTemporaryFolder(temporaryPlace(), "zor-bench-")) {}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(ownPath, ignored);
}

VirtualMachine::VirtualMachine()
    : ports(loop)
    , usb(loop, ports)
    , platform{.loop = loop,
               .ports = ports,
               .usb = usb,
               .dialogs = watchedDialogs,
               .surroundings = surroundings,
               .registerStores = registerStores,
               .programFolder = folder.path() / "program",
               .userFolder = folder.path() / "user"} {
    registerStores.asked = [this](std::string_view text) { asked.emplace_back(text); };
    // The program's folder has neighbours, which its dialogs may name.
    std::filesystem::create_directory(platform.programFolder);
}

} // namespace zor::testing
