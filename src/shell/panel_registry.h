// SPDX-License-Identifier: MIT
#pragma once

#include "elements/menu.h"
#include "link/bench.h"
#include "shell/panel_table.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// The first bar's buttons of the chip classes.
struct ChipButtons {
    BarButton& TX;
    BarButton& RX;
    BarButton& TRX;
};

/// The chip panels, of which one at most is open, and what of menus and bars goes with them.
///
/// Showing a panel the first time makes and fills it. Hiding keeps it with all its fields; closing its window
/// unloads it, and the next showing makes a new one. Owned by the main window.
class PanelRegistry {
  public:
    PanelRegistry(Bench& ownBench, MainMenu& ownMenu, ChipButtons ownButtons,
                  const std::vector<PanelRow>& rows = panelRows());
    PanelRegistry(const PanelRegistry&) = delete;
    PanelRegistry& operator=(const PanelRegistry&) = delete;
    ~PanelRegistry();

    /// Hides the panel if it is open; else hides every other one and shows it. The one place that keeps it to
    /// one panel at a time.
    /// @param state  the panel's switch
    void TogglePanel(std::string_view panel, bool state);

    /// Opens a panel whatever else is open, a transmitter as the last one chosen. Throws ToolError if there
    /// is no such panel.
    void reopen(std::string_view panel);

    /// The panel, filled and not shown, for a window that is placed before it is shown. Throws ToolError if
    /// there is no such panel.
    Form& create(std::string_view panel);
    /// The panel that is on the screen; nullptr if there is none.
    [[nodiscard]] ChipPanel* openPanel() const;

    /// A panel was closed by its window's button, and what the user had set went with it: the chip. It can be
    /// brought back until undoLost.
    Signal<const std::string&> settingsDiscarded;
    /// It was brought back, or the panel was opened anew.
    Signal<> undoLost;
    /// Brings the panel that was discarded last back as it was.
    void restoreDiscarded();

    /// What can be kept of a panel beyond the run.
    struct Kept {
        std::string panel;
        bool bijaku = false;
        /// As PanelMemory writes it.
        std::string memory;
    };
    /// The open panel; nothing if there is none, or it is as it was opened.
    [[nodiscard]] std::optional<Kept> keepOpen();
    [[nodiscard]] bool knows(std::string_view panel) const;
    /// The chip of a panel, its regional variant as that.
    [[nodiscard]] std::string chipOf(std::string_view panel, bool bijaku) const;
    /// Opens the panel as it was kept. Throws ToolError if that cannot be read; nothing has changed then.
    void restoreKept(const Kept& kept);

    /// Opens the panel of such a file, if it is not open, and loads the file. A chip's regional variant stays
    /// if it is the open one.
    void openConfiguration(const std::string& path);

    /// The end of the program: the panels whose end concerns the chip are closed.
    void closeAtExit();

  private:
    struct Slot;
    struct Class;
    struct Discarded;

    void wireMenu();
    void wireButton(Class& chipClass);
    [[nodiscard]] static std::vector<Class> classes(const ChipButtons& buttons);
    [[nodiscard]] Class& classOf(ChipClass chipClass);
    [[nodiscard]] Slot& slotOf(std::string_view panel);
    [[nodiscard]] MenuEntry& entryOf(const PanelRow& row) const;

    void choose(const PanelChoice& choice);
    void remember(const PanelChoice& choice);
    void barClicked(ChipClass chipClass);
    void show(Slot& slot);
    void hide(Slot& slot);
    void enableTools(const PanelTools& tools);
    /// The panel, made and filled if there is none; its row has a maker.
    ChipPanel& ensure(Slot& slot);
    void panelClosed(Slot& slot);
    void keepDiscarded(Slot& slot);
    void forgetDiscarded(const Slot& slot);
    /// What panels open for themselves, and what goes with them.
    void closeWindowsOfPanels() const;

    Bench& bench;
    MainMenu& menu;
    ChipButtons buttons;
    std::vector<Class> chipClasses;
    std::vector<std::unique_ptr<Slot>> slots;
    std::unique_ptr<Discarded> discarded;
    /// The next panel to be made gets a file that is chosen already.
    bool fileIsChosen = false;
    /// The next panel to be made is the discarded one.
    bool restoresNext = false;
    bool leaving = false;
};

} // namespace zor
