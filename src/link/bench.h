// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/monitor.h"
#include "platform/platform.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zor {

class Connect;
class DataSelector;
class TextField;

/// What the main window holds for everybody: the link variables, the preferences and one switch per window,
/// under the names that the product's users and files know. Owned by the main window, older than every panel
/// and tool.
struct Bench {
    Bench(Platform& machine, Desk& ownDesk);
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    Platform& platform;
    Desk& desk;
    /// The command channel; set once by the main window's construction.
    Connect* connect = nullptr;
    DataSelector* dataSelector = nullptr;
    /// The bar's text field of the port's state; every sending action writes "reading..." there.
    TextField* CommStatus = nullptr;

    // Link variables.
    /// The last characters received on the working port.
    std::string Last7;
    std::string Last15;
    std::string Last100;
    /// The prompts that end an exchange: line feed before carriage return, at both places.
    static constexpr std::string_view Last7OK = "\n\rOK\n\r>";
    static constexpr std::string_view Last7ERROR = "RROR\n\r>";
    /// 0 while the port is free, else the step of the sequence that owns it.
    std::int32_t CommState = 1;
    /// The terminal line being typed.
    std::string Buf1;
    /// 0 none, 1 and 2 the board's generation, 40 the loader, 50 the packet monitor.
    std::int16_t LoadBoardRev = 0;
    /// Location of the generation 2 board's USB converter; 0 if there is none.
    std::int32_t UsbLocation = 0;
    /// The program's folder, and its first two characters, which mean a drive on some systems only.
    std::string CurrentPath;
    std::string CurrentDrive;
    /// Set while the program itself changes LoadboardList.
    bool ListChangeBlocked = false;
    /// Position of the chosen board's entry while in Data mode.
    std::int16_t LoadBoardIndex = -1;

    // Preferences.
    /// First and last port of the search, decimal, as typed.
    std::string Commport_min = "1";
    std::string Commport_max = "8";
    /// 1: the workspace is opened at the start; a panel asks for its configuration as it opens.
    std::int32_t Pref_LoadWS = 0;
    std::int32_t Pref_CCautoLoad = 0;
    std::string Pref_OpalRevision = "'D' or above";
    std::string Pref_JadeRevision = "'A' or above";
    std::string Pref_AmberRevision = "'F' or above";
    std::int32_t Pref_RxLinkTimeout = 50;
    /// Supply of the radio board in V, as it was entered; its numeric prefix counts.
    std::string Pref_Voltage = "2.5";

    // Window switches, true while the window is open.
    bool TX0on = false;
    bool TX1on = false;
    bool TX2on = false;
    bool RXon = false;
    bool RX1on = false;
    bool TRXon = false;
    bool TRX1on = false;
    bool EEPROMon = false;
    bool Terminalon = false;
    bool RxLinkOn = false;
    bool RxLinkOn_LB2 = false;
    bool TRxLinkOn = false;
    bool OpalV2testOn = false;
    bool VireoMacSnifferOn = false;
    bool PowerSupplyOn = false;
    bool CWLinkRXOn = false;
    bool CWLinkTXOn = false;
    bool FirmLoadOn = false;
    bool SplashOn = false;

    // Selections of the chip buttons.
    std::string SelectedTx;
    std::string SelectedRx;
    std::string SelectedTrx;

    /// The low-power regional variant of a chip is the chosen one.
    void SetBijakuMode(bool flag) { BijakuMode = flag; }
    [[nodiscard]] bool IsBijakuModeSet() const { return BijakuMode; }
    /// Whether a status read that repeats ends when its button loses the focus.
    [[nodiscard]] static bool StopRepStReadOnLostFocus() { return true; }
    [[nodiscard]] static std::chrono::milliseconds GetRepetitiveStatusReadInterval() {
        return std::chrono::milliseconds(1500);
    }
    [[nodiscard]] static std::chrono::milliseconds GetRepetitiveStatusReadMarkInterval() {
        return std::chrono::milliseconds(150);
    }

    /// A window that shows what the working port receives while its switch is on.
    struct Mirror {
        bool Bench::*on;
        Monitor* receiver = nullptr;
    };
    /// In the order in which a received character reaches them.
    std::array<Mirror, 5> mirrors = {{{&Bench::TRxLinkOn, nullptr},
                                      {&Bench::RxLinkOn, nullptr},
                                      {&Bench::RxLinkOn_LB2, nullptr},
                                      {&Bench::VireoMacSnifferOn, nullptr},
                                      {&Bench::Terminalon, nullptr}}};
    /// Sets the field behind a mirror switch; nullptr takes it away.
    void setMirror(bool Bench::*on, Monitor* receiver);

    /// Pref_Voltage came from a file; the supply tool shows it.
    Signal<> supplyChanged;
    /// Tells the supply tool, if it is open, that a file brought another Pref_Voltage.
    void showSupply() const {
        if (PowerSupplyOn) {
            supplyChanged.emit();
        }
    }

    /// The tools that a panel's end closes and that a panel opens, by their form's name. A tool that does not
    /// exist has no row. Filled by the main window.
    std::map<std::string, std::function<void()>, std::less<>> openTool;
    std::map<std::string, std::function<void()>, std::less<>> closeTool;
    /// Makes a tool's window without showing it, or gives the one there is; for a window that is placed
    /// before it is shown.
    std::map<std::string, std::function<Form&()>, std::less<>> createTool;
    /// Runs the row if there is one.
    void open(std::string_view formName) const;
    void close(std::string_view formName) const;

    /// The value of a shared variable by its name, as text ("true", "3", "KT1100"); nothing for an unknown
    /// name.
    [[nodiscard]] std::optional<std::string> variable(std::string_view name) const;
    /// Lets others' variables be read by name too.
    std::map<std::string, std::function<std::string()>, std::less<>> variables;

    /// Shows a warning box.
    void warn(const std::string& text) const;
    /// Shows a caught error's box.
    void tellError(const ToolError& error, const std::string& title,
                   const std::string& closing = "Please try again!") const;
    /// The same for an error around a file: a file of the wrong kind has a text of its own.
    void tellFileError(const ToolError& error, const std::string& title,
                       const std::string& closing = "Please try again!") const;

  private:
    bool BijakuMode = false;
};

} // namespace zor
