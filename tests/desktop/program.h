// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/adapters/qt_loop.h"
#include "desktop/desktop_window.h"
#include "elements/desk.h"
#include "elements/watched_dialogs.h"
#include "shell/main_window.h"
#include "store/sqlite_register_store.h"
#include "transcript/station.h"

#include <QTemporaryDir>
#include <QTest>

#include <vector>

namespace zor {

/// A machine without a single serial port.
class NoPorts : public SerialPorts {
  public:
    [[nodiscard]] std::unique_ptr<SerialPort> create() override { return std::make_unique<Port>(); }
    void renumber() override {}
    [[nodiscard]] std::string devicePath(int) const override { return {}; }
    [[nodiscard]] bool present(int) const override { return false; }
    [[nodiscard]] std::string identity(int) const override { return {}; }
    [[nodiscard]] int find(const std::string&) override { return 0; }

  private:
    class Port : public SerialPort {
        void open(int, const LineSettings&) override { throw ToolError(invalidPort); }
        void close() override {}
        [[nodiscard]] bool isOpen() const override { return false; }
        void setFormat(const std::string&) override {}
        void write(std::string_view) override { throw ToolError(portNotOpen); }
    };
};

class NoUsb : public UsbDriver {
    FtStatus FT_CreateDeviceInfoList(std::uint32_t& count) override {
        count = 0;
        return ftOk;
    }
    FtStatus FT_GetDeviceInfoDetail(std::uint32_t, FtDeviceDetail&) override { return 2; }
    FtStatus FT_OpenEx(std::uint32_t, std::uint32_t, FtHandle&) override { return 2; }
    FtStatus FT_SetBitMode(FtHandle, std::uint8_t, std::uint8_t) override { return 1; }
    FtStatus FT_Write(FtHandle, std::string_view) override { return 1; }
    FtStatus FT_Close(FtHandle) override { return 1; }
};

/// Answers every box at once and remembers it.
class QuietDialogs : public Dialogs {
  public:
    Answer show(const Box& box) override {
        boxes.push_back(box);
        return box.buttons == BoxButtons::Ok ? Answer::Ok : Answer::No;
    }
    FileChoice chooseFile(const FileRequest& request) override {
        ++requests;
        return {.name = request.startName};
    }

    std::vector<Box> boxes;
    int requests = 0;
};

class NoSurroundings : public Surroundings {
    bool openDocument(const std::filesystem::path&) override { return false; }
    bool startSystemInformation() override { return false; }
    void copyText(const std::string&) override {}
};

/// The whole program on a screen that is only memory, on a machine with these ports.
template <class Ports>
struct ProgramOn {
    QTemporaryDir folder;
    QtLoop loop;
    Ports ports;
    NoUsb usb;
    QuietDialogs dialogs;
    WatchedDialogs watchedDialogs{dialogs};
    NoSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    Platform platform{loop,
                      ports,
                      usb,
                      watchedDialogs,
                      surroundings,
                      registerStores,
                      folder.path().toStdString(),
                      folder.path().toStdString()};
    Desk desk{loop};
    MainWindow main{platform, desk};
    transcript::Station station{main, watchedDialogs};
    /// What the screens have room for.
    std::vector<QRect> screens{{0, 0, 1920, 1080}};
    DesktopWindow window{main, [this] { return screens; }};

    /// Starts, takes the splash away and sees the search to its end.
    void start() {
        main.start();
        if (Form* splash = desk.find("frm_Splash")) {
            splash->userClose();
        }
        loop.runUntil(
            [this] { return main.bench().link.CommState() == 0 && main.linkBar.Connect.enabled(); });
        QCoreApplication::processEvents();
    }
};

/// With no board.
using Program = ProgramOn<NoPorts>;

} // namespace zor
