// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/monitor.h"
#include "link/link_variables.h"
#include "link/preference_values.h"
#include "link/recent_files.h"
#include "link/tools.h"
#include "link/window_switches.h"
#include "platform/platform.h"

#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace zor {

class ChipPanel;
class Connect;
class DataSelector;
class TextField;
class WireRecorder;

/// What the main window holds for everybody: the link, the preferences, the window switches, and the ways to
/// the board, to the tools and to the machine. Owned by the main window, older than every panel and tool.
struct Bench {
    Bench(Platform& machine, Desk& ownDesk, Tools& toolWindows)
        : platform(machine)
        , desk(ownDesk)
        , tools(toolWindows) {}
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    Platform& platform;
    Desk& desk;
    Tools& tools;
    /// The command channel; set once by the main window's construction.
    Connect* connect = nullptr;
    DataSelector* dataSelector = nullptr;
    /// The wire's history.
    WireRecorder* wireRecorder = nullptr;
    /// The bar's text field of the port's state; every sending action writes "reading..." there.
    TextField* CommStatus = nullptr;

    LinkVariables link;
    PreferenceValues preferences;
    WindowSwitches windows;
    Selections selections;

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

    /// The chip panel that is on the screen; nullptr if there is none.
    [[nodiscard]] ChipPanel* openPanel() const { return findOpenPanel ? findOpenPanel() : nullptr; }
    /// Set once by the panel registry.
    std::function<ChipPanel*()> findOpenPanel;

    /// A window that shows what the working port receives while its switch is on.
    struct Mirror {
        bool WindowSwitches::*on;
        Monitor* receiver = nullptr;
    };
    /// In the order in which a received character reaches them.
    std::array<Mirror, 5> mirrors = {{{&WindowSwitches::TRxLinkOn, nullptr},
                                      {&WindowSwitches::RxLinkOn, nullptr},
                                      {&WindowSwitches::RxLinkOn_LB2, nullptr},
                                      {&WindowSwitches::VireoMacSnifferOn, nullptr},
                                      {&WindowSwitches::Terminalon, nullptr}}};
    /// Sets the field behind a mirror switch; nullptr takes it away.
    void setMirror(bool WindowSwitches::*on, Monitor* receiver);

    /// Pref_Voltage came from a file; the supply tool shows it.
    Signal<> supplyChanged;
    /// Tells the supply tool, if it is open, that a file brought another Pref_Voltage.
    void showSupply() const {
        if (windows.PowerSupplyOn) {
            supplyChanged.emit();
        }
    }

    /// The configuration files that the user works with.
    RecentFiles recentFiles;

    /// The file that a dialog of this run loaded or saved last, by the name that a first one of its kind is
    /// proposed under.
    std::map<std::string, std::string> usedFiles;

    /// Where this run saved the C header of a device last.
    std::map<std::string, std::string> savedHeaders;

    /// One quiet line at the foot of the main window: what the user should know but need not answer.
    Signal<const std::string&> noticed;
    void notice(const std::string& text) const { noticed.emit(text); }

    /// Says at the foot that a number's text was taken only as far as it is one ("315,5"); takes that back
    /// once a text was read whole. An empty text says nothing.
    void tellReading(std::string_view typed);
    /// A notice has become untrue; it goes if it still stands.
    Signal<const std::string&> withdrawn;

    /// A value that configuration files hold for all panels was changed elsewhere than in a panel.
    Signal<> sharedValueChanged;

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
    std::string toldReading;
};

} // namespace zor
