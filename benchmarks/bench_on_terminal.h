// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/adapters/linux_usb_driver.h"
#include "desktop/adapters/qt_loop.h"
#include "desktop/adapters/qt_serial_port.h"
#include "elements/desk.h"
#include "panels/transmitters/opal_v2.h"
#include "shell/main_window.h"
#include "store/sqlite_register_store.h"

#include <QTemporaryDir>

#include <array>
#include <filesystem>
#include <memory>
#include <string>

namespace zor::benchmarks {

/// What somebody types into a panel's frequency, over and over.
inline constexpr std::array<const char*, 4> typedFrequencies = {"315", "314.1234", "311.5", "318.9975"};

/// The program's own adapters and core on one terminal, connected, with no window on the screen.
class BenchOnTerminal {
  public:
    explicit BenchOnTerminal(const std::string& terminalPath);

    [[nodiscard]] Connect& connect() { return *window.bench().connect; }
    [[nodiscard]] Bench& bench() { return window.bench(); }
    [[nodiscard]] MainWindow& main() { return window; }
    /// The program's own, which goes with it.
    [[nodiscard]] std::filesystem::path folder() const { return ownFolder.path().toStdString(); }
    /// A KT1100 panel, filled and open.
    [[nodiscard]] OpalV2& panel();
    /// What every file dialog gives from now on.
    void nextFile(const std::string& path) { dialogs.file = path; }

  private:
    class SilentDialogs : public Dialogs {
      public:
        Answer show(const Box&) override { return Answer::Ok; }
        FileChoice chooseFile(const FileRequest& request) override {
            return {.name = file.empty() ? request.startName : file};
        }
        std::string file;
    };
    class NoSurroundings : public Surroundings {
      public:
        bool openDocument(const std::filesystem::path&) override { return false; }
        bool startSystemInformation() override { return false; }
        void copyText(const std::string&) override {}
    };

    QtLoop loop;
    SerialDevices devices;
    QtSerialPorts ports{loop, devices};
    LinuxUsbDriver usb{devices};
    SilentDialogs dialogs;
    NoSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    QTemporaryDir ownFolder;
    Platform platform{loop, ports, usb, dialogs, surroundings, registerStores, folder(), folder()};
    Desk desk{loop};
    MainWindow window{platform, desk};
    std::unique_ptr<OpalV2> opal;
};

} // namespace zor::benchmarks
