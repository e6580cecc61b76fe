// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/menu.h"
#include "link/bench.h"
#include "link/board_choice.h"
#include "link/connect.h"
#include "link/data_selector.h"
#include "link/link_bar.h"
#include "link/link_messages.h"
#include "link/link_state.h"
#include "link/port_search.h"
#include "link/reconnect.h"
#include "link/wire_recorder.h"
#include "shell/column_memory.h"
#include "shell/foot_line.h"
#include "shell/kept_settings.h"
#include "shell/main_menu.h"
#include "shell/panel_registry.h"
#include "shell/programmer_button.h"
#include "shell/tool_windows.h"
#include "shell/workspace.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zor {

/// The frame of the whole tool: menus, three tool bars, the choice of a board, and the only opener of panels
/// and tools. start() runs the start-up; closing it ends the program. Owned by main, with the
/// platform and the desk older than it.
class MainWindow : public Form {
  public:
    MainWindow(Platform& platform, Desk& desk);
    ~MainWindow() override;

    [[nodiscard]] Bench& bench() { return ownBench; }
    [[nodiscard]] LinkState linkState() const { return link.state(); }
    [[nodiscard]] const PortSearch& portSearch() const { return search; }
    [[nodiscard]] const DataSelector& dataSelector() const { return selector; }
    /// A double click on the empty window waits for a second one.
    [[nodiscard]] bool factoryClickPending() const { return FactoryClickPending; }
    /// The title without the mark of that gesture.
    [[nodiscard]] const std::string& plainCaption() const { return PlainCaption; }

    /// Creates what the start-up order says, shows the window and starts the port search. Called once.
    void start();

    /// One quiet line at the foot of the window: what the user should know but need not answer.
    Label Notice;
    /// Beside it: brings a panel back whose window was closed with settings in it.
    Button Undo;

    Bar Toolbar1;
    BarButton TX;
    BarButton RX;
    BarButton TRX;
    BarButton EE;
    LinkBar linkBar;
    MainMenu menu;

    /// Opens a chip's configuration file in the chip's panel, now or as soon as panels can be used.
    void openFile(const std::string& path);

    void Connect_Click();
    void Disconnect_Click();

    /// The chip buttons and the View and Tools menus.
    void EnablePanelButtons(bool flag);

  protected:
    void unload() override;

  private:
    void listen(Signal<>& signal, std::function<void()> action) {
        subscriptions.push_back(signal.subscribe(std::move(action)));
    }
    void wireMenu();
    /// The entry bears a tick until the form has closed.
    void tickWhileOpen(MenuEntry& entry, Form& form);
    /// Opens a tool's window, or says that there is none.
    void openTool(Tool tool);
    void wireLink();
    void startSearch();
    void linkEntered(LinkState state);
    void searchFinished();
    /// What the foot says while nothing else is to be said.
    [[nodiscard]] std::string standingNotice() const;
    /// What the last search could not open, and why; empty if it could open all.
    [[nodiscard]] std::string unopenedDevices() const;
    void tellWaitingFile();
    /// @param window  the form that the guide is to tell of; its beginning if empty
    void openGuide(const std::string& window);
    void openDataSheet(const std::string& chip);
    [[nodiscard]] std::filesystem::path documentsBesideTheProgram() const;
    void showDevice();
    void offerUndo(const std::string& chip);
    void nameUndo();
    void factoryGesture();
    void FactoryModeTimer_Timer();
    void browse(const std::string& folder, const std::string& title);
    void closeLinkTools();
    void disableLinkEntries();
    void closeOpenForms();

    Bench ownBench;
    FootLine foot;
    LinkStateMachine link;
    zor::Connect channel;
    LinkMessages messages;
    WireRecorder recorder;
    DataSelector selector;
    PortSearch search;
    BoardChoice boardChoice;
    zor::Reconnect reconnect;
    ToolWindows tools;
    PanelRegistry registry;
    ProgrammerButton programmer;

  public:
    /// What a run that ended badly has left, and what this one keeps.
    KeptSettings kept;

  private:
    Workspace workspace;
    ColumnMemory columnMemory;
    Timer FactoryModeTimer;
    bool FactoryClickPending = false;
    std::string PlainCaption;
    /// What was said when Undo was offered, and the chip that it brings back.
    std::string discardedNotice;
    std::string discardedChip;
    /// Asked for while panels could not be used.
    std::string waitingFile;
    std::vector<Subscription> subscriptions;
    Subscription registerToolEnding;
    Subscription naming;
};

} // namespace zor
