// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/register_store.h"
#include "platform/serial_port.h"
#include "platform/usb_driver.h"

#include <filesystem>
#include <string>

namespace zor {

/// What of the user's desktop the product reaches besides its own windows.
class Surroundings {
  public:
    virtual ~Surroundings() = default;
    /// Opens a document in the program that the desktop has for it. @return false if there is none
    virtual bool openDocument(const std::filesystem::path& document) = 0;
    /// Starts the system's own information tool. @return false if none can be found
    virtual bool startSystemInformation() = 0;
    /// Puts a text on the clipboard.
    /// @param text  its lines ended by CR LF
    virtual void copyText(const std::string& text) = 0;
};

/// All that the core sees of the machine. Lives as long as the program; owned by main.
struct Platform {
    EventLoop& loop;
    SerialPorts& ports;
    UsbDriver& usb;
    Dialogs& dialogs;
    Surroundings& surroundings;
    RegisterStores& registerStores;
    /// Where settings files live: beside the executable or, installed, with the user.
    std::filesystem::path programFolder;
    /// Stands in for the program's folder where that may not be written.
    std::filesystem::path userFolder;
    /// The register database that comes with the program; empty if none does.
    std::filesystem::path startDatabase = {};
    /// Where the program's own documents lie; empty if they did not come with it.
    std::filesystem::path documentFolder = {};
    /// The decimal mark of the user's locale, for the one field that is read by it.
    char decimalMark = '.';
};

} // namespace zor
