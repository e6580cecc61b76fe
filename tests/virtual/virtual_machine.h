// SPDX-License-Identifier: MIT
#pragma once

#include "elements/watched_dialogs.h"
#include "platform/platform.h"
#include "store/sqlite_register_store.h"
#include "virtual/scripted_dialogs.h"
#include "virtual/virtual_loop.h"
#include "virtual/virtual_ports.h"
#include "virtual/virtual_usb.h"

#include <filesystem>
#include <vector>

namespace zor::testing {

/// A desktop that opens every document and has no information tool, unless told otherwise.
class VirtualSurroundings : public Surroundings {
  public:
    bool openDocument(const std::filesystem::path& document) override {
        opened.push_back(document);
        return opensDocuments;
    }
    bool startSystemInformation() override { return hasSystemInformation; }
    void copyText(const std::string& text) override { clipboard = text; }

    std::vector<std::filesystem::path> opened;
    std::string clipboard;
    bool opensDocuments = true;
    bool hasSystemInformation = false;
};

/// A folder of its own that goes with all it holds.
class TemporaryFolder {
  public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return ownPath; }

  private:
    std::filesystem::path ownPath;
};

/// A machine for the program to run on: virtual time, simulated boards on its ports, dialogs that are
/// answered from a list, and an empty program folder. Outlives the program.
class VirtualMachine {
  public:
    VirtualMachine();

    TemporaryFolder folder;
    VirtualLoop loop;
    VirtualPorts ports;
    VirtualUsb usb;
    ScriptedDialogs dialogs;
    /// What the program asks through: tells of what it hands on to the scripted ones.
    WatchedDialogs watchedDialogs{dialogs};
    VirtualSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    /// The texts that reached the store of registers, oldest first. Whoever has looked at them clears them.
    std::vector<std::string> asked;
    Platform platform;
};

} // namespace zor::testing
