// SPDX-License-Identifier: MIT
#include "virtual/virtual_machine.h"

#include "virtual/temporary_place.h"

#include <cstdlib>
#include <stdexcept>

namespace zor::testing {

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (temporaryPlace() / "zor-bench-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder can be made at " + pattern);
    }
    ownPath = pattern;
}

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
