// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/program.h"

#include "desktop/adapters/linux_usb_driver.h"
#include "desktop/adapters/qt_serial_port.h"
#include "desktop/demo_board.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace zor {

/// Gives the same file to each dialog; with none, its start name.
class OneFileDialogs : public QuietDialogs {
  public:
    FileChoice chooseFile(const FileRequest& request) override {
        return file.empty() ? QuietDialogs::chooseFile(request) : FileChoice{.name = file};
    }
    std::string file;
};

/// The program without its window, on the real adapters, with the simulated board as the only port.
class ProgramOnBoard : public testing::Test {
  protected:
    /// @param arguments  of loadboard-sim
    void start(const QStringList& arguments) {
        QString terminal = board.start(arguments);
        ASSERT_FALSE(terminal.isEmpty());
        devices.addDevice(terminal.toStdString(), "LoadBoard");
        startWithoutBoard();
    }
    void startWithoutBoard() {
        main = std::make_unique<MainWindow>(platform, desk);
        main->start();
    }

    /// @return whether it came true in time
    bool wait(const std::function<bool()>& condition,
              EventLoop::Duration patience = std::chrono::seconds(10)) {
        bool late = false;
        auto limit = loop.startTimer(patience, EventLoop::Repeat::Once, [&] { late = true; });
        // A file that comes into being is no event of this program.
        auto look = loop.startTimer(std::chrono::milliseconds(20), EventLoop::Repeat::Every, [] {});
        loop.runUntil([&] { return late || condition(); });
        loop.stopTimer(look);
        loop.stopTimer(limit);
        return !late;
    }

    /// A board was found and its port is the working one.
    bool chosen() {
        return wait([this] {
            return main->bench().link.CommState() == 0 && main->linkBar.LoadboardList.locked() &&
                   main->linkBar.LoadboardList.text().ends_with("Com1");
        });
    }

    QTemporaryDir folder;
    QtLoop loop;
    SerialDevices devices{"/dev", folder.path().toStdString()};
    QtSerialPorts ports{loop, devices};
    LinuxUsbDriver usb{devices};
    OneFileDialogs dialogs;
    NoSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    Platform platform{loop,
                      ports,
                      usb,
                      dialogs,
                      surroundings,
                      registerStores,
                      folder.path().toStdString(),
                      folder.path().toStdString()};
    Desk desk{loop};
    DemoBoard board;
    std::unique_ptr<MainWindow> main;
};

} // namespace zor
